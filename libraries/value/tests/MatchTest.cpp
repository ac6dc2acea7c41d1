// Matching against regular expressions: what it shares with std::regex and what not, and its limits.

// False alarms of g++ within <regex>, in builds with sanitizers.
#if !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include "Expressions.h"
#include "OnStack.h"
#include "Thrown.h"

#include <otx/Interruption.h>

#include "match/Expression.h"

#include <atomic>
#include <optional>
#include <regex>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace tests;

COtxString text(const std::string& content) { return COtxString(content); }

bool matches(const std::string& subject, const std::string& expression) {
    return text(subject).String().Match(text(expression)).Bool();
}

// Nothing for an expression that is refused.
std::optional<bool> ours(const std::string& subject, const std::string& expression) {
    const COtxValue failure = thrown([&] { matches(subject, expression); });
    if (failure.Type() == OTX::ValueType::Empty) return matches(subject, expression);
    EXPECT_EQ(static_cast<int>(failure.Exception().Kind()), stringUtil) << expression;
    return std::nullopt;
}

// For texts of ASCII and escapes.
std::optional<bool> theirs(const std::string& subject, const std::string& expression) {
    try {
        std::wregex compiled;
        compiled.imbue(std::locale::classic());
        compiled.assign(std::wstring(expression.begin(), expression.end()));
        return std::regex_match(std::wstring(subject.begin(), subject.end()), compiled);
    } catch (const std::regex_error&) {
        return std::nullopt;
    }
}

std::string told(std::optional<bool> answer) { return !answer ? "refused" : *answer ? "true" : "false"; }

std::string repeated(const std::string& part, int times) {
    std::string result;
    for (int time = 0; time < times; ++time) result += part;
    return result;
}

struct Difference {
    const char* expression;
    const char* subject;
    const char* ours;
    const char* theirs;
};

// What std::regex of this compiler does otherwise; we follow ECMAScript where it says something.
const Difference differences[] = {
    {"a**", "a", "refused", "true"},         // two repetitions in a row
    {"a++", "a", "refused", "true"},
    {"(a)|b\\1", "b", "true", "false"},      // a reference to a group that took nothing matches the empty text
    {"\\cJ", "\n", "true", "false"},         // a control character is the letter itself there
    {"\\cJ", "J", "false", "true"},
    {"\\c1", "1", "refused", "true"},
    {"\\ud83d", "a", "refused", "false"},    // half of a surrogate pair
    {"[[.a.]]", "a", "refused", "true"},     // collating elements
    {"[[=a=]]", "a", "refused", "true"},
    {"[[:w:]]", "a", "refused", "true"},     // names of classes that POSIX doesn't have
};

}  // namespace

TEST(Match, AgreesWithTheStandardLibrary) {
    for (const char* const expression : agreed) {
        for (const char* const subject : subjects)
            EXPECT_EQ(told(ours(subject, expression)), told(theirs(subject, expression)))
                << "'" << expression << "' on '" << subject << "'";
    }
}

// The table has no expression that is beyond one of them.
TEST(Match, BothMatchersAgree) {
    for (const char* const text : agreed) {
        std::optional<otx::Expression> expression;
        try {
            expression.emplace(text);
        } catch (const COtxValue&) {
            continue;
        }
        if (!expression->isRegular()) continue;
        pcre2_match_data* const data = pcre2_match_data_create(1, nullptr);
        std::vector<int> room(1000);
        for (const char* const subject : subjects) {
            const auto* const begin = reinterpret_cast<PCRE2_SPTR>(subject);
            const std::size_t size = std::char_traits<char>::length(subject);
            const int stepwise = pcre2_match(expression->code(), begin, size, 0, 0, data, nullptr);
            const int passed =
                pcre2_dfa_match(expression->code(), begin, size, 0, 0, data, nullptr, room.data(), room.size());
            EXPECT_TRUE(passed >= 0 || passed == PCRE2_ERROR_NOMATCH) << passed;
            EXPECT_EQ(stepwise >= 0, passed >= 0) << "'" << text << "' on '" << subject << "'";
        }
        pcre2_match_data_free(data);
    }
}

TEST(Match, DiffersFromTheStandardLibraryWhereItIsKnown) {
    for (const Difference& difference : differences) {
        EXPECT_EQ(told(ours(difference.subject, difference.expression)), difference.ours) << difference.expression;
        EXPECT_EQ(told(theirs(difference.subject, difference.expression)), difference.theirs) << difference.expression;
    }
}

TEST(Match, CountsCodePoints) {
    EXPECT_TRUE(matches("\xC3\xA4\xF0\x9F\x98\x80", ".."));
    EXPECT_TRUE(matches("\xF0\x9F\x98\x80", "\\ud83d\\ude00"));
    EXPECT_TRUE(matches("\xF0\x9F\x98\x80", "[\\ud83d\\ude00-\\ud83d\\ude01]"));
    EXPECT_TRUE(matches("\xC3\xB6", "[\xC3\xA4-\xC3\xBC]"));
    EXPECT_FALSE(matches("\xE2\x80\xA8", "."));
    EXPECT_FALSE(matches("\xC3\xA4", "\\w"));
    // Bytes that are no UTF-8 count as one character each.
    EXPECT_TRUE(matches("a\xFF\xFEz", "a..z"));
    EXPECT_TRUE(matches("\xFF", "\xFE"));
    EXPECT_TRUE(matches(std::string("a\0b", 3), "a\\0b"));
    EXPECT_TRUE(matches(std::string("a\0b", 3), std::string("a\0b", 3)));
}

TEST(Match, NothingOfTheMatchersOwnGrammarGetsThrough) {
    for (const char* const expression : {"(*ACCEPT)a", "(*LIMIT_MATCH=1)a", "(*UTF)a", "(?C1)a", "(?|a)", "(?&n)", "(?(1)a)",
                                         "(?-i)a", "a(?#comment)"})
        EXPECT_EQ(ours("a", expression), std::nullopt) << expression;
    // Letters that mean something to the matcher stand for themselves.
    for (const char letter : std::string("AaCEeGgHhKklLNopPQRUVXyzZ"))
        EXPECT_TRUE(matches(std::string(1, letter), std::string("\\") + letter)) << letter;
    EXPECT_TRUE(matches("p{L}", "\\p\\{L\\}"));
    EXPECT_TRUE(matches("#x y", "#x y"));
}

TEST(Match, ExpressionsThatTakeOthersExponentialTimeAreDecided) {
    const std::string as(5000, 'a');
    EXPECT_FALSE(matches(as + "bc", "(a+)+b"));
    EXPECT_FALSE(matches(as + "bc", "(a|a)*b"));
    EXPECT_FALSE(matches(as + "bc", "(a|aa)+b"));
    EXPECT_FALSE(matches(as + "bc", "((a*)*)*b"));
    EXPECT_FALSE(matches(as + "bc", "(.*)*b"));
    EXPECT_FALSE(matches(as + "bc", "(?:a?){40}a*b"));
    EXPECT_FALSE(matches(as + "!", "([a-z]+)*"));
    EXPECT_FALSE(matches(as + "bc", ".*.*.*.*.*b"));
    EXPECT_TRUE(matches(as + "b", "(a+)+b"));
}

TEST(Match, ExpressionsThatAreExponentialForUsTooAreRefused) {
    const std::string as(5000, 'a');
    EXPECT_EQ(OTX_THROWN_TEXT(matches(as + "bc", "(a+)+\\1b")), "Match: it takes too many steps");
    EXPECT_EQ(OTX_THROWN_TEXT(matches(as + "bc", "(?=a)(a|aa)+b")), "Match: it takes too many steps");
    EXPECT_EQ(OTX_THROWN_KIND(matches(as + "bc", "(a*)*(a*)*\\1b")), stringUtil);
}

TEST(Match, LongTextsAreDecided) {
    const std::string text10(10'000'000, 'a');
    EXPECT_TRUE(matches(text10, "a*"));
    EXPECT_TRUE(matches(text10, ".*"));
    EXPECT_TRUE(matches(text10, "(a|b)*"));
    EXPECT_FALSE(matches(text10 + "!", "([a-z]+)*"));
    EXPECT_FALSE(matches(text10 + "bc", "(a+)+b"));
    EXPECT_FALSE(matches(text10 + "bc", "[^x]*[^x]*b"));
    EXPECT_FALSE(matches(text10, "a*b"));
    EXPECT_TRUE(matches(text10, "(?=a).*"));
    EXPECT_TRUE(matches(text10 + "1", "(?=.*[0-9])(?=.*[a-z]).{8,}"));
}

// Each of these reads the text over and over without a step that the matcher would count.
TEST(Match, TextsThatAreReadAgainAndAgainAreRefused) {
    const std::string as(2'000'000, 'a');
    EXPECT_EQ(OTX_THROWN_KIND(matches(as + "bc", "(a*)\\1b")), stringUtil);
    EXPECT_EQ(OTX_THROWN_KIND(matches(as + "x", "(?:(?=.*x).)*")), stringUtil);
    EXPECT_EQ(OTX_THROWN_KIND(matches(as + "x", "(?:(?!.*xy)(?=.*x).)*y")), stringUtil);
}

TEST(Match, ExpressionsAreLimited) {
    EXPECT_EQ(OTX_THROWN_KIND(matches("a", std::string(100'000, '('))), stringUtil);
    EXPECT_EQ(OTX_THROWN_KIND(matches("a", repeated("(?=", 100'000))), stringUtil);
    EXPECT_EQ(OTX_THROWN_KIND(matches("a", "((a?){999}){999}")), stringUtil);
    EXPECT_EQ(OTX_THROWN_KIND(matches("a", "a{65536}")), stringUtil);
    EXPECT_EQ(OTX_THROWN_KIND(matches("a", "a{99999999999999999999}")), stringUtil);
    EXPECT_EQ(OTX_THROWN_KIND(matches("a", std::string(10'000'000, '['))), stringUtil);
    EXPECT_EQ(OTX_THROWN_KIND(matches("a", std::string(1'000'000, 'a'))), stringUtil);
    EXPECT_EQ(OTX_THROWN_KIND(matches("a", "(a)" + repeated("\\1", 500'000))), stringUtil);
    EXPECT_TRUE(matches("a", std::string(250, '(') + "a" + std::string(250, ')')));
    EXPECT_EQ(OTX_THROWN_KIND(matches("a", std::string(251, '(') + "a" + std::string(251, ')'))), stringUtil);
    EXPECT_TRUE(matches("a", repeated("(?=", 125) + "a" + repeated(")", 125) + "a"));
    EXPECT_TRUE(matches(std::string(10'000, 'a'), std::string(10'000, 'a')));
    EXPECT_TRUE(matches(std::string(300, 'a'), repeated("(a)", 299) + "\\299"));
}

TEST(Match, SmallStacksAreEnoughOrRefused) {
    if (!deepCallsFit) GTEST_SKIP() << "the thread sanitizer bears no deep calls";
    for (const std::size_t stack : {std::size_t{64 * 1024}, std::size_t{128 * 1024}, smallStack}) {
        onStack(stack, [&] {
            const std::string as(50'000, 'a');
            // Expressions of their own, so that they aren't compiled already.
            const std::string own = std::to_string(stack);
            int refused = 0;
            const auto attempt = [&](const std::string& subject, const std::string& expression) {
                if (!ours(subject, "(?:" + own + "|" + expression + ")")) ++refused;
            };
            attempt(as, "(a|b)*");
            attempt(as + "bc", "(a+)+b");
            attempt("a", std::string(248, '(') + "a" + std::string(248, ')'));
            attempt("a", repeated("(?:a|(b", 120) + "a" + repeated(")*)*", 120));
            attempt("a", repeated("(?=", 120) + "a" + repeated(")", 120) + "a");
            attempt("a", repeated("(?!(?:", 120) + "a" + repeated("))", 120) + "a");
            attempt("a", repeated("(?:", 248) + "a" + repeated("){1,2}", 10) + repeated(")", 238));
            attempt(as, "(a)\\1.*");
            if (stack == smallStack) {
                EXPECT_LE(refused, 4);
            }
        });
    }
}

TEST(Match, MayBeInterrupted) {
    struct Stopped {};
    int asked = 0;
    const auto stop = [&] {
        ++asked;
        throw Stopped();
    };
    const std::string as(5000, 'a');
    {
        const otx::InterruptionScope scope(stop);
        EXPECT_THROW(matches(as + "bc", "(a+)+\\1b"), Stopped);
        EXPECT_EQ(asked, 1);
        EXPECT_TRUE(matches("a", "a"));
        EXPECT_EQ(asked, 1);
        const auto count = [&] { ++asked; };
        {
            const otx::InterruptionScope inner(count);
            EXPECT_EQ(OTX_THROWN_KIND(matches(as + "bc", "(a+)+\\1b")), stringUtil);
        }
        EXPECT_GT(asked, 2);
        EXPECT_THROW(matches(as + "bc", "(a+)+b"), Stopped);
    }
    EXPECT_FALSE(matches(as + "bc", "(a+)+b"));
}

TEST(Match, ManyExpressionsOnManyThreads) {
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&wrong] {
            for (int number = 0; number < 600; ++number) {
                const std::string digits = std::to_string(number);
                if (!matches("x" + digits, "[a-z]" + digits) || matches("x", "[a-z]" + digits)) ++wrong;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
}
