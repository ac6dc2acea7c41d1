// How integers are laid out in bytes.
#pragma once

namespace OTX {

// The sign of an integer in bytes. None is the neutral number that a byte field literal passes; for an integer it counts
// as TwosComplement.
enum class Encoding : int {
    None = 0,
    SignedBinary = 1,  // the highest bit is the sign, the others are the magnitude
    TwosComplement = 3,
    Unsigned = 4
};

// The order of the bytes.
enum class Endianness : int {
    LittleEndian = 0,
    BigEndian = 1
};

}  // namespace OTX
