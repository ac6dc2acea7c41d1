// UTF-8 and its characters.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace otx {

// What stands for bytes that are no UTF-8.
constexpr char32_t replacementCharacter = 0xFFFD;

// How many bytes of ASCII the text begins with, to within the last eight.
std::size_t asciiPrefix(std::string_view text) noexcept;

// The bytes of the character at the front of a text that isn't empty; 0 for a byte that begins none. Overlong forms,
// surrogates and what is beyond U+10FFFF are none.
std::size_t lengthOfCharacter(std::string_view text) noexcept;

// The character at the front of a text that isn't empty, which is cut off it; nothing for a byte that begins no
// character, which is cut off alone.
std::optional<char32_t> takeCharacter(std::string_view& text) noexcept;

void appendUtf8(std::string& text, char32_t character);

bool isUtf8(std::string_view text) noexcept;
// The text with replacementCharacter for each byte that is no UTF-8.
std::string repairUtf8(std::string_view text);

// Full case mapping of Unicode, the same under every locale; bytes that are no UTF-8 stay. Throw kind 19 for a text of a
// gigabyte.
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);

}  // namespace otx
