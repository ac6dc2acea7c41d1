// How wide characters are on a terminal.
#include "text/Columns.h"

#include "text/Utf8.h"

#include <unicode/uchar.h>

namespace velkotx::host {

namespace {

bool standsOnAnother(UChar32 code) {
    constexpr UChar32 softHyphen = 0xAD;
    const auto type = u_charType(code);
    if (type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK || (type == U_FORMAT_CHAR && code != softHyphen))
        return true;
    // The later letters of a syllable in Hangul.
    const int syllable = u_getIntPropertyValue(code, UCHAR_HANGUL_SYLLABLE_TYPE);
    return syllable == U_HST_VOWEL_JAMO || syllable == U_HST_TRAILING_JAMO;
}

}  // namespace

std::size_t columnsOf(std::string_view text) {
    if (text.empty())
        return 0;
    const auto code = codeOfUtf8(text.substr(0, sizeOfUtf8(static_cast<unsigned char>(text.front()))));
    if (!code)
        return 1;
    if (standsOnAnother(static_cast<UChar32>(*code)))
        return 0;
    const int width = u_getIntPropertyValue(static_cast<UChar32>(*code), UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace velkotx::host
