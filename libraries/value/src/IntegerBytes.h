// Integers and doubles as bytes.
#pragma once

#include <otx/value/IntegerCoding.h>

#include <vector>

namespace otx {

// Eight bytes, big-endian: two's complement, IEEE 754.
std::vector<unsigned char> bytesOf(long long value);
std::vector<unsigned char> bytesOf(double value);

// `bits` wide, 1 to 64. Throws kind 2 for other widths and for a value that doesn't fit.
std::vector<unsigned char> encodeInteger(long long value, int bits, OTX::Encoding encoding, OTX::Endianness endianness);
// `bits` wide, 1 to the bytes' own; more than 64 only as long as the number fits. Throws kind 2 otherwise.
long long decodeInteger(const std::vector<unsigned char>& bytes, int bits, OTX::Encoding encoding,
                        OTX::Endianness endianness);

}  // namespace otx
