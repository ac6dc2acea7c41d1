// The CRC-32 of ISO 3309.
#include "vehicle/Crc32.h"

#include <array>

namespace velkotx::host {

namespace {

constexpr std::array<std::uint32_t, 256> makeTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t index = 0; index < 256; ++index) {
        std::uint32_t value = index;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? 0xEDB88320U ^ (value >> 1U) : value >> 1U;
        table[index] = value;
    }
    return table;
}

constexpr auto table = makeTable();

}  // namespace

std::uint32_t crc32(std::span<const std::uint8_t> bytes, std::uint32_t before) {
    std::uint32_t value = ~before;
    for (const std::uint8_t byte : bytes)
        value = table[(value ^ byte) & 0xFFU] ^ (value >> 8U);
    return ~value;
}

}  // namespace velkotx::host
