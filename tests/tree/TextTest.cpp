// Texts of attributes: characters, numbers, dates, bytes, under any global locale.
#include <schema/Text.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

namespace {

using schema::InvalidValue;
using schema::readNumber;

// A locale that writes 1.234,5.
class Comma : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class UnderForeignLocale : public testing::Test {
protected:
    void SetUp() override { former_ = std::locale::global(std::locale(std::locale::classic(), new Comma)); }
    void TearDown() override { std::locale::global(former_); }

private:
    std::locale former_;
};

TEST(Text, NarrowKeepsAsciiAndWritesUtf8) {
    EXPECT_EQ(schema::narrow(nullptr), "");
    EXPECT_EQ(schema::narrow(u"abc"), "abc");
    EXPECT_EQ(schema::narrow(u"\u00fc\u20ac"), "\xc3\xbc\xe2\x82\xac");
    EXPECT_EQ(schema::narrow(u"\U0001F697"), "\xf0\x9f\x9a\x97");
}

TEST(Text, Booleans) {
    EXPECT_TRUE(readNumber<bool>(u"true"));
    EXPECT_TRUE(readNumber<bool>(u" 1\n"));
    EXPECT_FALSE(readNumber<bool>(u"false"));
    EXPECT_FALSE(readNumber<bool>(u"0"));
    for (const char16_t* text : {u"", u"TRUE", u"yes", u"2"}) EXPECT_THROW(readNumber<bool>(text), InvalidValue);
}

TEST(Text, Integers) {
    EXPECT_EQ(readNumber<long long>(u"9223372036854775807"), std::numeric_limits<long long>::max());
    EXPECT_EQ(readNumber<long long>(u"-9223372036854775808"), std::numeric_limits<long long>::min());
    EXPECT_EQ(readNumber<long long>(u" +7 "), 7);
    for (const char16_t* text : {u"", u"abc", u"1.0", u"9223372036854775808", u"1 2", u"+-1", u"0x10"})
        EXPECT_THROW(readNumber<long long>(text), InvalidValue);
}

TEST_F(UnderForeignLocale, Doubles) {
    EXPECT_EQ(readNumber<double>(u"1234.5"), 1234.5);
    EXPECT_EQ(readNumber<double>(u"-1e3"), -1000.0);
    EXPECT_EQ(readNumber<double>(u"INF"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(readNumber<double>(u"-INF"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(readNumber<double>(u"1e-400"), 0.0);
    EXPECT_EQ(readNumber<double>(u"-4e-320"), -4e-320);
    EXPECT_TRUE(std::isnan(readNumber<double>(u"NaN")));
    for (const char16_t* text : {u"", u"1,5", u"1e400", u"inf", u"nan", u"infinity", u"0x1p3"})
        EXPECT_THROW(readNumber<double>(text), InvalidValue);
}

TEST_F(UnderForeignLocale, Dates) {
    const auto plain = schema::readDateTime("2026-01-15T10:20:30.5");
    EXPECT_EQ(plain->year(), 2026);
    EXPECT_EQ(plain->month(), 1);
    EXPECT_EQ(plain->day(), 15);
    EXPECT_EQ(plain->hours(), 10);
    EXPECT_EQ(plain->minutes(), 20);
    EXPECT_EQ(plain->seconds(), 30.5);
    EXPECT_FALSE(plain->zone_present());
    const auto zoned = schema::readDateTime("-0044-03-15T12:00:00-05:30");
    EXPECT_EQ(zoned->year(), -44);
    EXPECT_EQ(zoned->zone_hours(), -5);
    EXPECT_EQ(zoned->zone_minutes(), -30);
    EXPECT_TRUE(schema::readDateTime("2026-01-15T10:00:00Z")->zone_present());
    for (const char* text : {"", "2026-01-15", "2026-1-15T10:00:00", "2026-01-15T10:00", "2026-01-15T10:00:00x",
                             "2026-01-15T10:00:00+1", "2026-01-15T10:00:.5"})
        EXPECT_THROW(schema::readDateTime(text), InvalidValue) << text;
}

TEST(Text, HexBinary) {
    const auto bytes = schema::readHexBinary(" 0aFF ");
    ASSERT_EQ(bytes->size(), 2U);
    EXPECT_EQ(bytes->data()[0], '\x0a');
    EXPECT_EQ(bytes->data()[1], '\xff');
    EXPECT_EQ(schema::readHexBinary("")->size(), 0U);
    for (const char* text : {"0", "0g", "0x12", "-1"}) EXPECT_THROW(schema::readHexBinary(text), InvalidValue) << text;
}

TEST(Text, TheFailureNamesTextAndType) {
    try {
        readNumber<long long>(u"abc");
        FAIL();
    } catch (const schema::Exception& failure) {
        std::ostringstream out;
        out << failure;
        EXPECT_EQ(out.str(), "invalid value 'abc' for type 'long'");
    }
}

}  // namespace
