// The algorithms that make a key from a seed.
#include "vehicle/SeedKey.h"

#include <array>

namespace velkotx::host {

namespace {

Bytes withConstant(const Bytes& seed, const Bytes& constant) {
    Bytes bytes = seed;
    for (std::size_t index = 0; index < bytes.size() && !constant.empty(); ++index)
        bytes[index] = static_cast<std::uint8_t>(bytes[index] ^ constant[index % constant.size()]);
    return bytes;
}

Bytes sum(const Bytes& seed, const Bytes& constant) {
    Bytes result = seed;
    unsigned carry = 0;
    for (std::size_t place = 0; place < seed.size(); ++place) {
        const std::size_t index = seed.size() - 1 - place;
        const unsigned addend = place < constant.size() ? constant[constant.size() - 1 - place] : 0U;
        const unsigned digit = seed[index] + addend + carry;
        result[index] = static_cast<std::uint8_t>(digit);
        carry = digit >> 8;
    }
    return result;
}

Bytes complement(const Bytes& seed, const Bytes&) {
    return withConstant(seed, {0xFF});
}

Bytes shiftedOnce(const Bytes& seed) {
    Bytes result = seed;
    for (std::size_t index = 0; index < seed.size(); ++index) {
        const unsigned low = index + 1 < seed.size() ? seed[index + 1] >> 7 : 0U;
        result[index] = static_cast<std::uint8_t>((seed[index] << 1) | static_cast<int>(low));
    }
    return result;
}

Bytes shiftXor(const Bytes& seed, const Bytes& constant) {
    constexpr int rounds = 35;
    Bytes value = seed;
    for (int round = 0; round < rounds && !value.empty(); ++round) {
        const bool highestBit = (value.front() & 0x80) != 0;
        value = shiftedOnce(value);
        if (highestBit)
            value = withConstant(value, constant);
    }
    return value;
}

struct Algorithm {
    std::string_view name;
    SeedKey function;
    bool needsConstant;
};

constexpr std::array algorithms{
    Algorithm{"xor", withConstant, true},
    Algorithm{"add", sum, true},
    Algorithm{"complement", complement, false},
    Algorithm{"shift-xor", shiftXor, true},
};

const Algorithm* find(std::string_view name) {
    for (const Algorithm& algorithm : algorithms)
        if (algorithm.name == name)
            return &algorithm;
    return nullptr;
}

}  // namespace

SeedKey findSeedKey(std::string_view name) {
    const Algorithm* algorithm = find(name);
    return algorithm == nullptr ? nullptr : algorithm->function;
}

bool seedKeyNeedsConstant(std::string_view name) {
    const Algorithm* algorithm = find(name);
    return algorithm != nullptr && algorithm->needsConstant;
}

std::string seedKeyNames() {
    std::string names;
    for (const Algorithm& algorithm : algorithms)
        names += (names.empty() ? "\"" : ", \"") + std::string(algorithm.name) + '"';
    return names;
}

}  // namespace velkotx::host
