// Placeholders are replaced as the standard library's regular expressions would.

// False alarms of g++ within <regex>, in builds with sanitizers.
#if !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include <OTXi18nTerms/Placeholder.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace {

using i18n::replacePlaceholder;

std::string byExpression(const std::string& text, std::size_t index, const std::string& replacement) {
    return std::regex_replace(text, std::regex("\\{" + std::to_string(index) + "\\}"), replacement);
}

std::string madeOf(const std::vector<std::string_view>& pieces, std::size_t count, std::minstd_rand& random) {
    std::string text;
    for (std::size_t piece = 0; piece < count; ++piece) text += pieces[random() % pieces.size()];
    return text;
}

}  // namespace

TEST(Placeholder, IsReplacedAsByTheStandardLibrary) {
    const std::vector<std::string> texts{
        "",      "{0}",     "{1}",        "{12}",          "a {0} b",      "{0}{0}",  "a{0}b{0}c",
        "{{0}}", "{0",      "0}",         "{0}{1}{12}",    "$&{0}$1",      "{00}",    "{ 0}",
        "a\nb{0}c\nd", "\\{0\\}", "{0}\xC3\xA4{0}", std::string("a\0{0}\0b", 7)};
    const std::vector<std::string> replacements{
        "",     "x",    "$",      "$$",   "$$$",   "$&",   "$&$&",  "$`",   "$'",    "$`$'",  "$0",    "$00",
        "$1",   "$9",   "$10",    "$01",  "$000",  "$010", "$123",  "$a",   "a$",    "$ ",    "$$&",   "$$$&",
        "{0}",  "{1}",  "$1{0}",  "$-1",  "\\1",   "\\&",  "&",     "$$0",  "$0$",   "$\n",   "$\xC3", "$<n>",
        "${0}", "a$&b", "$'$'$'", "$`a$", std::string("a\0b", 3),    std::string("$\0", 2)};
    for (const std::string& text : texts) {
        for (const std::string& replacement : replacements) {
            for (const std::size_t index : {0U, 1U, 12U}) {
                EXPECT_EQ(replacePlaceholder(text, index, replacement), byExpression(text, index, replacement))
                    << "text " << text << ", index " << index << ", replacement " << replacement;
            }
        }
    }
}

TEST(Placeholder, IsReplacedAsByTheStandardLibraryInTextsOfAllKinds) {
    const std::vector<std::string_view> pieces{"{0}", "{1}", "{", "}", "0", "1", "9", "$", "$$", "&", "`", "'", "a", " "};
    std::minstd_rand random(20260115);
    for (int round = 0; round < 5000; ++round) {
        const std::string text = madeOf(pieces, random() % 12, random);
        const std::string replacement = madeOf(pieces, random() % 8, random);
        const std::size_t index = random() % 2;
        ASSERT_EQ(replacePlaceholder(text, index, replacement), byExpression(text, index, replacement))
            << "text " << text << ", index " << index << ", replacement " << replacement;
    }
}

// Where a regular expression has no stack left.
TEST(Placeholder, IsReplacedInLongTexts) {
    const std::string half(1 << 20, '{');
    EXPECT_EQ(replacePlaceholder(half + "{7}" + half, 7, "x"), half + 'x' + half);
    EXPECT_EQ(replacePlaceholder(half, 7, "x"), half);
    EXPECT_EQ(replacePlaceholder("{7}", 7, half), half);
}
