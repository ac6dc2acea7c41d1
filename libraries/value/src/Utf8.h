// UTF-8 and its characters.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace otx {

// What stands for bytes that are no UTF-8.
constexpr char32_t replacementCharacter = 0xFFFD;

// The character at the front of a text that isn't empty, which is cut off it; nothing for a byte that begins no
// character, which is cut off alone. Refuses overlong forms, surrogates and what is beyond U+10FFFF.
std::optional<char32_t> takeCharacter(std::string_view& text) noexcept;

void appendUtf8(std::string& text, char32_t character);

// Characters in the text; a byte that is no UTF-8 counts as one.
std::size_t countCharacters(std::string_view text) noexcept;
// The byte at which the character of that position begins: the text's size for the position at its end, nothing for one
// past it.
std::optional<std::size_t> placeOfCharacter(std::string_view text, std::size_t position) noexcept;
// The same, with the text's size for a position past its end too.
std::size_t byteOfCharacter(std::string_view text, std::size_t position) noexcept;

bool isUtf8(std::string_view text) noexcept;
// The text with replacementCharacter for each byte that is no UTF-8.
std::string repairUtf8(std::string_view text);

// Full case mapping of Unicode, the same under every locale; bytes that are no UTF-8 stay. Throw kind 19 for a text of a
// gigabyte.
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);

}  // namespace otx
