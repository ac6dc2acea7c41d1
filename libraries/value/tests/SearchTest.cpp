// Looking for a text within another one: the right places, in time, and to be interrupted.
#include <otx/Interruption.h>

#include "Thrown.h"

namespace {

long long indexOf(const std::string& text, const std::string& pattern) {
    return COtxString(text).String().IndexOf(COtxString(pattern)).Int();
}

std::vector<std::string> split(const std::string& text, const std::string& mark) {
    std::vector<std::string> parts;
    const COtxValue list = COtxString(text).String().Split(COtxString(mark));
    for (const COtxValue& part : list.List()) parts.push_back(part.String());
    return parts;
}

std::string repeated(const std::string& part, std::size_t times) {
    std::string text;
    text.reserve(part.size() * times);
    for (std::size_t time = 0; time < times; ++time) text += part;
    return text;
}

struct Interrupted {};

// Whether the work asks, and ends when it is told to.
template <class Work>
bool isInterrupted(Work work) {
    const auto ask = [] { throw Interrupted(); };
    const otx::InterruptionScope scope(ask);
    try {
        work();
        return false;
    } catch (const Interrupted&) {
        return true;
    }
}

}  // namespace

// Of few letters, so that most places look right for a while.
TEST(Search, FindsWhatTheStandardLibraryFinds) {
    std::uint32_t random = 11;
    const auto letters = [&random](std::size_t count) {
        std::string text;
        for (std::size_t place = 0; place < count; ++place) {
            random = random * 1664525 + 1013904223;
            text += (random >> 24) < 230 ? 'a' : 'b';
        }
        return text;
    };
    for (std::size_t round = 0; round < 3000; ++round) {
        const std::string text = letters(round % 700);
        const std::string pattern = letters(1 + round % 90);
        const std::size_t place = text.find(pattern);
        ASSERT_EQ(indexOf(text, pattern), place == std::string::npos ? -1 : static_cast<long long>(place)) << text << ' ' << pattern;
        std::string whole;
        for (const std::string& part : split(text, pattern)) whole += (whole.empty() ? "" : pattern) + part;
        if (!text.starts_with(pattern)) {
            ASSERT_EQ(whole, text);
        }
    }
}

// The work of a place by place comparison would be 10^12 bytes.
TEST(Search, TakesTimeInProportionToTheTexts) {
    const std::string text(4'000'000, 'a');
    const std::string half(2'000'000, 'a');
    for (const std::string& pattern : {half + 'b', half + 'b' + half, 'b' + half, std::string(200, 'a') + 'b'}) {
        EXPECT_EQ(indexOf(text, pattern), -1);
        EXPECT_EQ(split(text, pattern).size(), 1u);
    }
    EXPECT_EQ(indexOf(text + 'b', half + 'b'), 2'000'000);
    EXPECT_EQ(split(text, half), (std::vector<std::string>{"", "", ""}));
}

TEST(Search, FindsAcrossThePiecesItGoesBy) {
    const std::string text = repeated("abcdefghij", 400'000);
    for (const std::size_t place : {std::size_t{0}, (std::size_t{1} << 20) - 1, std::size_t{1} << 20, (std::size_t{2} << 20) - 3,
                                    text.size() - 3}) {
        std::string marked = text;
        marked.replace(place, 3, "XYZ");
        EXPECT_EQ(indexOf(marked, "XYZ"), static_cast<long long>(place));
        EXPECT_EQ(indexOf(marked, "XYZW"), -1);
    }
}

// A byte that is no UTF-8 is a character of its own, and nothing within one.
TEST(Search, FindsWholeCharactersOnly) {
    EXPECT_EQ(indexOf("\xC3\xA9", "\xA9"), -1);
    EXPECT_EQ(indexOf("\xC3\xA9", "\xC3"), -1);
    EXPECT_EQ(indexOf("\xC3\xA9\xA9", "\xA9"), 1);
    EXPECT_EQ(indexOf("\xC3\xA9\xC3", "\xC3"), 1);
    EXPECT_EQ(indexOf("a\xC3\xA9\xC3\xA9\xA9\xC3", "\xA9\xC3"), 3);
    EXPECT_EQ(split("\xC3\xA9", "\xA9"), (std::vector<std::string>{"\xC3\xA9"}));
    EXPECT_EQ(split("\xC3\xA9\xA9\xC3\xA9", "\xA9"), (std::vector<std::string>{"\xC3\xA9", "\xC3\xA9"}));
    EXPECT_EQ(indexOf(repeated("\xC3\xA9", 100'000), "\xA9\xC3"), -1);
}

TEST(Search, IsInterrupted) {
    const COtxString text(std::string(3'000'000, 'a'));
    const COtxString pattern(std::string(1'000'000, 'a') + 'b');
    EXPECT_TRUE(isInterrupted([&] { text.String().IndexOf(COtxString("b")); }));
    EXPECT_TRUE(isInterrupted([&] { text.String().IndexOf(pattern); }));
    EXPECT_TRUE(isInterrupted([&] { text.String().Split(COtxString("b")); }));
    EXPECT_TRUE(isInterrupted([&] { text.String().Split(COtxString("a")); }));
    EXPECT_TRUE(isInterrupted([&] { text.String().Split(COtxString("")); }));
    EXPECT_FALSE(isInterrupted([&] { COtxString("abc").String().IndexOf(COtxString("c")); }));
}
