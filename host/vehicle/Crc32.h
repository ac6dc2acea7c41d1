// The CRC-32 of ISO 3309, that of Ethernet.
#pragma once

#include <cstdint>
#include <span>

namespace velkotx::host {

// Of bytes that follow those whose CRC is `before`; 0 at the beginning.
std::uint32_t crc32(std::span<const std::uint8_t> bytes, std::uint32_t before = 0);

}  // namespace velkotx::host
