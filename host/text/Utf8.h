// Characters of UTF-8 (RFC 3629), byte by byte.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace velkotx::host {

// How many bytes the character has that begins so; 1 for a byte with which none begins.
std::size_t sizeOfUtf8(unsigned char first);
bool isRestOfUtf8(unsigned char byte);
// Whether the bytes are one character: neither broken, nor longer than need be, nor half of a pair, nor too large.
bool isUtf8Character(std::string_view bytes);
// Its number in Unicode; none for bytes that aren't one character.
std::optional<char32_t> codeOfUtf8(std::string_view character);

}  // namespace velkotx::host
