// A host's global locale changes nothing.
#include <clocale>
#include <locale>

#include "Thrown.h"

namespace {

// Decimal comma and grouped digits, as a host may have set them.
class CommaPunctuation : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class Locale : public testing::Test {
protected:
    Locale() : before_(std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation))) {}
    ~Locale() override { std::locale::global(before_); }

private:
    std::locale before_;
};

}  // namespace

TEST_F(Locale, NumbersAreWrittenTheSame) {
    EXPECT_EQ(COtxFloat(1234567.5).ToString().String(), "1234567.5");
    EXPECT_EQ(COtxInt(1234567).ToString().String(), "1234567");
    EXPECT_EQ(tests::json(COtxFloat(0.5)), "0.5");
    EXPECT_EQ(tests::json(COtxInt(1234567)), "1234567");
    EXPECT_EQ(tests::json(COtxString(std::string(1, '\x1F'))), "\"\\u001f\"");
    EXPECT_STREQ(COtxFloat(0.5).what(), "0.5");
    // The stream has the host's locale.
    EXPECT_EQ(tests::streamed(COtxInt(1234567)), "1234567");
    EXPECT_EQ(tests::streamed(COtxFloat(0.5)), "0.5");
    EXPECT_EQ(tests::streamed(COtxList(std::vector<COtxValue>{COtxInt(1234567), COtxFloat(0.5)})), "[1234567,0.5]");
    EXPECT_EQ(tests::streamed(COtxQuantity(1234.5, COtxUnit("V"), 16)), "1234.5 V");
}

TEST_F(Locale, NumbersAreReadTheSame) {
    EXPECT_EQ(COtxString("1.5").ToFloat().Float(), 1.5);
    EXPECT_EQ(OTX_THROWN_KIND(COtxString("1,5").ToFloat()), tests::typeMismatch);
    EXPECT_EQ(COtxString("1234567").ToInteger().Int(), 1234567);
    EXPECT_EQ(OTX_THROWN_KIND(COtxString("1.234.567").ToInteger()), tests::typeMismatch);
    EXPECT_EQ(OTX::FromJSON("1.5").Float(), 1.5);
    EXPECT_EQ(OTX::FromJSON("1234567").Int(), 1234567);
    EXPECT_TRUE(COtxString("1.5").String().Match(COtxString("\\d\\.\\d")).Bool());
}

TEST_F(Locale, TheLocaleOfTheCLibraryChangesNothingEither) {
    // Debian names it so; where it isn't installed the test above has to do.
    const char* const german = std::setlocale(LC_ALL, "de_DE.UTF-8");
    if (german == nullptr) GTEST_SKIP() << "no locale with a decimal comma is installed";
    EXPECT_EQ(OTX::FromJSON("1.5").Float(), 1.5);
    EXPECT_EQ(COtxFloat(1.5).ToString().String(), "1.5");
    EXPECT_EQ(COtxString("1.5").ToFloat().Float(), 1.5);
    std::setlocale(LC_ALL, "C");
}
