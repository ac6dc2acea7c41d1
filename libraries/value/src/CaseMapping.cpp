// Upper and lower case of Latin, Greek and Cyrillic letters.
#include <array>

#include "Utf8.h"

namespace otx {

namespace {

// Letters whose lower case stands at a fixed distance above the upper case.
struct Range {
    char32_t firstUpper;
    char32_t lastUpper;
    char32_t distance;
};

constexpr std::array<Range, 13> ranges{{
    {U'A', U'Z', 32},
    {0x00C0, 0x00D6, 32},
    {0x00D8, 0x00DE, 32},
    {0x0178, 0x0178, static_cast<char32_t>(-121)},  // Y with diaeresis, whose lower case is in Latin-1
    {0x0386, 0x0386, 38},
    {0x0388, 0x038A, 37},
    {0x038C, 0x038C, 64},
    {0x038E, 0x038F, 63},
    {0x0391, 0x03A1, 32},
    {0x03A3, 0x03AB, 32},
    {0x0400, 0x040F, 80},
    {0x0410, 0x042F, 32},
    {0x1E9E, 0x1E9E, static_cast<char32_t>(0xDF - 0x1E9E)},
}};

// Letters in pairs: the upper case, then the lower case right after it.
struct Pairs {
    char32_t firstUpper;
    char32_t lastUpper;
};

// The dotted and dotless i of Turkish (U+0130, U+0131) are left out: their other case depends on the language.
constexpr std::array<Pairs, 7> pairs{{
    {0x0100, 0x012E},
    {0x0132, 0x0136},
    {0x0139, 0x0147},
    {0x014A, 0x0176},
    {0x0179, 0x017D},
    {0x0460, 0x0480},
    {0x048A, 0x04BE},
}};

}  // namespace

char32_t toUpper(char32_t character) noexcept {
    // The capital sharp s exists, but the small one keeps its form.
    if (character == 0x00DF) return character;
    for (const Range& range : ranges) {
        const char32_t upper = character - range.distance;
        if (upper >= range.firstUpper && upper <= range.lastUpper) return upper;
    }
    for (const Pairs& block : pairs) {
        if (character > block.firstUpper && character <= block.lastUpper + 1 &&
            (character - block.firstUpper) % 2 == 1)
            return character - 1;
    }
    return character;
}

char32_t toLower(char32_t character) noexcept {
    for (const Range& range : ranges) {
        if (character >= range.firstUpper && character <= range.lastUpper) return character + range.distance;
    }
    for (const Pairs& block : pairs) {
        if (character >= block.firstUpper && character <= block.lastUpper &&
            (character - block.firstUpper) % 2 == 0)
            return character + 1;
    }
    return character;
}

}  // namespace otx
