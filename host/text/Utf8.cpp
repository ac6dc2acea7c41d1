// Characters of UTF-8.
#include "text/Utf8.h"

#include <cstdint>

namespace velkotx::host {

std::size_t sizeOfUtf8(unsigned char first) {
    if (first >= 0xF0 && first <= 0xF4)
        return 4;
    if (first >= 0xE0 && first < 0xF0)
        return 3;
    return first >= 0xC2 && first < 0xE0 ? 2 : 1;
}

bool isRestOfUtf8(unsigned char byte) {
    return (byte & 0xC0U) == 0x80;
}

bool isUtf8Character(std::string_view bytes) {
    if (bytes.empty())
        return false;
    const auto first = static_cast<unsigned char>(bytes.front());
    if (bytes.size() != sizeOfUtf8(first))
        return false;
    if (bytes.size() == 1)
        return first < 0x80;
    std::uint32_t code = first & (0x7FU >> bytes.size());
    for (const char each : bytes.substr(1)) {
        const auto byte = static_cast<unsigned char>(each);
        if (!isRestOfUtf8(byte))
            return false;
        code = (code << 6U) | (byte & 0x3FU);
    }
    const std::uint32_t least = bytes.size() == 2 ? 0x80 : bytes.size() == 3 ? 0x800 : 0x10000;
    return code >= least && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

}  // namespace velkotx::host
