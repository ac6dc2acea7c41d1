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

// How many bytes of ASCII the text begins with, to within the last eight.
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

void skipCharacter(std::string_view& text) noexcept {
    if (static_cast<unsigned char>(text.front()) < 0x80)
        text.remove_prefix(1);
    else
        takeCharacter(text);
}

}  // namespace

std::optional<char32_t> takeCharacter(std::string_view& text) noexcept {
    const auto lead = static_cast<unsigned char>(text.front());
    std::size_t length = 1;
    char32_t character = lead;
    char32_t smallest = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        character = lead & 0x1Fu;
        smallest = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        character = lead & 0x0Fu;
        smallest = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        character = lead & 0x07u;
        smallest = 0x10000;
    }
    bool valid = length > 1 || lead < 0x80;
    for (std::size_t place = 1; valid && place < length; ++place) {
        valid = place < text.size() && isContinuation(text[place]);
        if (valid) character = character << 6 | (static_cast<unsigned char>(text[place]) & 0x3Fu);
    }
    valid = valid && character >= smallest && character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
    text.remove_prefix(valid ? length : 1);
    if (!valid) return std::nullopt;
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

std::size_t countCharacters(std::string_view text) noexcept {
    std::size_t count = 0;
    while (!text.empty()) {
        const std::size_t plain = asciiPrefix(text);
        count += plain;
        text.remove_prefix(plain);
        for (int next = 0; next < 8 && !text.empty(); ++next, ++count) skipCharacter(text);
    }
    return count;
}

std::optional<std::size_t> placeOfCharacter(std::string_view text, std::size_t position) noexcept {
    std::string_view rest = text;
    while (position > 0 && !rest.empty()) {
        const std::size_t plain = asciiPrefix(rest.substr(0, position));
        rest.remove_prefix(plain);
        position -= plain;
        for (int next = 0; next < 8 && position > 0 && !rest.empty(); ++next, --position) skipCharacter(rest);
    }
    if (position > 0) return std::nullopt;
    return text.size() - rest.size();
}

std::size_t byteOfCharacter(std::string_view text, std::size_t position) noexcept {
    return position >= text.size() ? text.size() : placeOfCharacter(text, position).value_or(text.size());
}

bool isUtf8(std::string_view text) noexcept {
    while (!text.empty()) {
        text.remove_prefix(asciiPrefix(text));
        for (int next = 0; next < 8 && !text.empty(); ++next) {
            if (!takeCharacter(text)) return false;
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
