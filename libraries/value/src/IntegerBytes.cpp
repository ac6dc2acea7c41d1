// Integers and doubles as bytes.
#include "IntegerBytes.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <string>

#include "Refusal.h"

namespace otx {

namespace {

using OTX::Encoding;

constexpr int widest = 64;

[[noreturn]] void failBounds(const std::string& text) { fail(OTX::Exceptions_e::OutOfBoundsException, text); }

Encoding checked(Encoding encoding) {
    switch (encoding) {
        case Encoding::None:
        case Encoding::TwosComplement: return Encoding::TwosComplement;
        case Encoding::SignedBinary:
        case Encoding::Unsigned: return encoding;
    }
    failBounds("Unknown integer encoding " + std::to_string(static_cast<int>(encoding)));
}

std::uint64_t maskOf(int bits) { return bits >= widest ? ~std::uint64_t{0} : (std::uint64_t{1} << bits) - 1; }

std::vector<unsigned char> bigEndian(std::uint64_t number, std::size_t size) {
    std::vector<unsigned char> bytes(size);
    for (auto place = bytes.rbegin(); place != bytes.rend(); ++place) {
        *place = static_cast<unsigned char>(number);
        number >>= 8;
    }
    return bytes;
}

// The bits that stand for the value, or false when it doesn't fit.
bool encoded(long long value, int bits, Encoding encoding, std::uint64_t& number) {
    const auto raw = static_cast<std::uint64_t>(value);
    const std::uint64_t magnitude = value < 0 ? ~raw + 1 : raw;
    const std::uint64_t largest = maskOf(bits - 1);
    switch (encoding) {
        case Encoding::Unsigned:
            number = raw;
            return value >= 0 && (raw & ~maskOf(bits)) == 0;
        case Encoding::SignedBinary:
            number = value < 0 ? magnitude | (largest + 1) : magnitude;
            return magnitude <= largest;
        case Encoding::None:
        case Encoding::TwosComplement: break;
    }
    number = raw & maskOf(bits);
    return value < 0 ? magnitude <= largest + 1 : magnitude <= largest;
}

}  // namespace

std::vector<unsigned char> bytesOf(long long value) { return bigEndian(static_cast<std::uint64_t>(value), 8); }

std::vector<unsigned char> bytesOf(double value) { return bigEndian(std::bit_cast<std::uint64_t>(value), 8); }

std::vector<unsigned char> encodeInteger(long long value, int bits, Encoding encoding, OTX::Endianness endianness) {
    if (bits < 1 || bits > widest)
        failBounds("An integer can't be encoded in " + std::to_string(bits) + " bits, only in 1 to 64");
    std::uint64_t number = 0;
    if (!encoded(value, bits, checked(encoding), number))
        failBounds("Integer " + std::to_string(value) + " does not fit into " + std::to_string(bits) + " bits");
    auto bytes = bigEndian(number, static_cast<std::size_t>(bits + 7) / 8);
    if (endianness == OTX::Endianness::LittleEndian) std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

long long decodeInteger(const std::vector<unsigned char>& bytes, int bits, Encoding encoding,
                        OTX::Endianness endianness) {
    encoding = checked(encoding);
    if (bits < 1 || static_cast<std::size_t>(bits) > bytes.size() * 8)
        failBounds("An integer of " + std::to_string(bits) + " bits can't be decoded from " +
                   std::to_string(bytes.size()) + " bytes");
    const auto bitAt = [&](int position) {
        const auto fromEnd = static_cast<std::size_t>(position) / 8;
        const auto index = endianness == OTX::Endianness::LittleEndian ? fromEnd : bytes.size() - 1 - fromEnd;
        return (bytes[index] >> (position % 8) & 1) != 0;
    };
    const bool signBit = encoding != Encoding::Unsigned && bitAt(bits - 1);
    // What stands above the 64 bits must be what a wider form of the same number has there.
    const bool filler = signBit && encoding == Encoding::TwosComplement;
    const int digits = encoding == Encoding::SignedBinary ? bits - 1 : bits;
    std::uint64_t number = 0;
    bool fits = true;
    for (int position = digits - 1; position >= 0; --position) {
        const bool bit = bitAt(position);
        if (position >= widest)
            fits = fits && bit == filler;
        else
            number = number << 1 | (bit ? 1 : 0);
    }
    constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<long long>::max());
    switch (encoding) {
        case Encoding::Unsigned: fits = fits && number <= largest; break;
        case Encoding::SignedBinary:
            fits = fits && (number <= largest || (signBit && number == largest + 1));
            if (signBit) number = ~number + 1;
            break;
        case Encoding::None:
        case Encoding::TwosComplement:
            if (signBit && bits < widest) number |= ~maskOf(bits);
            fits = fits && (number > largest) == signBit;
            break;
    }
    if (!fits) failBounds("The decoded integer is beyond 64 bits");
    return static_cast<long long>(number);
}

}  // namespace otx
