// The ByteField value.
#pragma once

#include <otx/value/COtxStringEncoding.h>
#include <otx/value/COtxValue.h>
#include <otx/value/IByteField.h>
#include <otx/value/IntegerCoding.h>

#include <string>
#include <vector>

// A sequence of bytes, changed in place through OTX::IByteField.
class OTX_API COtxByteField : public COtxValue {
public:
    COtxByteField();
    explicit COtxByteField(const std::vector<unsigned char>& bytes);
    explicit COtxByteField(std::vector<unsigned char>&& bytes);
    // The bytes as they stand. `bits` says how many of them count, from the last byte's lowest on; the others become
    // zero. -1 is all of them. The encoding is not looked at. Throws kind 2 for more bits than there are.
    COtxByteField(const unsigned char* bytes, int size, OTX::Encoding encoding, int bits);
    // Encodes an integer in `bits` bits, 1 to 64, in as many bytes as these take. Throws kind 2 for a value that doesn't
    // fit and for other widths.
    COtxByteField(const long long& value, const int& bits, OTX::Encoding encoding, OTX::Endianness endianness);
    // Encodes a text. Throws kind 20 (UnsupportedEncodingException) for a text that the encoding can't carry.
    COtxByteField(const std::string& text, COtxStringEncoding::Encoding encoding);
};
