// UTF-8 and its characters.
#include "Utf8.h"

#include <cstdint>
#include <cstring>

namespace otx {

namespace {

bool isContinuation(char byte) noexcept { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

std::uint64_t eightBytes(const char* place) noexcept {
    std::uint64_t eight = 0;
    std::memcpy(&eight, place, 8);
    return eight;
}

}  // namespace

std::size_t asciiPrefix(std::string_view text) noexcept {
    constexpr std::uint64_t highBits = 0x8080808080808080u;
    std::size_t place = 0;
    for (; place + 64 <= text.size(); place += 64) {
        std::uint64_t block = 0;
        for (std::size_t word = 0; word < 64; word += 8) block |= eightBytes(text.data() + place + word);
        if ((block & highBits) != 0) break;
    }
    while (place + 8 <= text.size() && (eightBytes(text.data() + place) & highBits) == 0) place += 8;
    return place;
}

std::size_t lengthOfCharacter(std::string_view text) noexcept {
    const auto byte = [text](std::size_t place) { return static_cast<unsigned char>(text[place]); };
    const auto continues = [text](std::size_t place) { return isContinuation(text[place]); };
    const unsigned lead = byte(0);
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    if (lead < 0xE0) return text.size() >= 2 && continues(1) ? 2 : 0;
    // Without overlong forms, surrogates and what is beyond U+10FFFF.
    if (lead < 0xF0) {
        if (text.size() < 3 || !continues(1) || !continues(2)) return 0;
        return (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) > 0x9F) ? 0 : 3;
    }
    if (text.size() < 4 || !continues(1) || !continues(2) || !continues(3)) return 0;
    return (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) > 0x8F) ? 0 : 4;
}

std::optional<char32_t> takeCharacter(std::string_view& text) noexcept {
    constexpr unsigned leadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    const std::size_t length = lengthOfCharacter(text);
    const std::string_view bytes = text.substr(0, length);
    text.remove_prefix(length > 0 ? length : 1);
    if (length == 0) return std::nullopt;
    char32_t character = static_cast<unsigned char>(bytes[0]) & leadBits[length];
    for (const char byte : bytes.substr(1)) character = character << 6 | (static_cast<unsigned char>(byte) & 0x3Fu);
    return character;
}

void appendUtf8(std::string& text, char32_t character) {
    const auto put = [&text](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | character >> 6);
        put(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        put(0xE0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3F));
        put(0x80 | (character & 0x3F));
    } else {
        put(0xF0 | character >> 18);
        put(0x80 | (character >> 12 & 0x3F));
        put(0x80 | (character >> 6 & 0x3F));
        put(0x80 | (character & 0x3F));
    }
}

bool isUtf8(std::string_view text) noexcept {
    while (!text.empty()) {
        text.remove_prefix(asciiPrefix(text));
        for (int next = 0; next < 8 && !text.empty(); ++next) {
            const std::size_t length = lengthOfCharacter(text);
            if (length == 0) return false;
            text.remove_prefix(length);
        }
    }
    return true;
}

std::string repairUtf8(std::string_view text) {
    std::string repaired;
    repaired.reserve(text.size());
    while (!text.empty()) appendUtf8(repaired, takeCharacter(text).value_or(replacementCharacter));
    return repaired;
}

}  // namespace otx
