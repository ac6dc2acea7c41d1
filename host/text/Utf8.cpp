// Characters of UTF-8.
#include "text/Utf8.h"

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

std::optional<char32_t> codeOfUtf8(std::string_view character) {
    if (character.empty())
        return {};
    const auto first = static_cast<unsigned char>(character.front());
    const std::size_t size = sizeOfUtf8(first);
    if (character.size() != size)
        return {};
    if (size == 1)
        return first < 0x80 ? std::optional<char32_t>(first) : std::nullopt;
    char32_t code = first & (0x7FU >> size);
    for (const char each : character.substr(1)) {
        const auto byte = static_cast<unsigned char>(each);
        if (!isRestOfUtf8(byte))
            return {};
        code = (code << 6U) | (byte & 0x3FU);
    }
    const char32_t least = size == 2 ? 0x80 : size == 3 ? 0x800 : 0x10000;
    const bool isOne = code >= least && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    return isOne ? std::optional(code) : std::nullopt;
}

bool isUtf8Character(std::string_view bytes) {
    return codeOfUtf8(bytes).has_value();
}

}  // namespace velkotx::host
