// The conversions, type by type.
#include <limits>

#include "Thrown.h"

namespace {

using tests::arithmetic;
using tests::typeMismatch;

COtxByteField bytes(std::vector<unsigned char> content) { return COtxByteField(std::move(content)); }
COtxString text(const char* content) { return COtxString(content); }
std::string shown(const COtxValue& value) { return value.ToString().String(); }
std::string hex(const COtxValue& value) { return value.ToByteField().ToString().String(); }

}  // namespace

TEST(ToBoolean, NumbersThatAreNotZeroAreTrue) {
    EXPECT_TRUE(COtxBool(true).ToBoolean().Bool());
    EXPECT_TRUE(COtxInt(-1).ToBoolean().Bool());
    EXPECT_FALSE(COtxInt(0).ToBoolean().Bool());
    EXPECT_TRUE(COtxFloat(0.1).ToBoolean().Bool());
    EXPECT_FALSE(COtxFloat(-0.0).ToBoolean().Bool());
    EXPECT_EQ(COtxInt(1).ToBoolean().Type(), OTX::ValueType::Boolean);
}

TEST(ToBoolean, StringsAreTrueOrFalseInAnyCase) {
    EXPECT_TRUE(text("true").ToBoolean().Bool());
    EXPECT_TRUE(text("TRUE").ToBoolean().Bool());
    EXPECT_TRUE(text("tRuE").ToBoolean().Bool());
    EXPECT_FALSE(text("False").ToBoolean().Bool());
    EXPECT_EQ(OTX_THROWN_KIND(text("1").ToBoolean()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(text("").ToBoolean()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(text(" true").ToBoolean()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_TEXT(text("yes").ToBoolean()), "ToBoolean of String 'yes': neither true nor false");
}

TEST(ToBoolean, ByteFieldsWithAnyBitAreTrue) {
    EXPECT_TRUE(bytes({0, 0, 1}).ToBoolean().Bool());
    EXPECT_FALSE(bytes({0, 0}).ToBoolean().Bool());
    EXPECT_FALSE(bytes({}).ToBoolean().Bool());
}

TEST(ToInteger, BooleansAndFloats) {
    EXPECT_EQ(COtxBool(true).ToInteger().Int(), 1);
    EXPECT_EQ(COtxBool(false).ToInteger().Int(), 0);
    EXPECT_EQ(COtxFloat(2.9).ToInteger().Int(), 2);
    EXPECT_EQ(COtxFloat(-2.9).ToInteger().Int(), -2);
    EXPECT_EQ(COtxFloat(-9223372036854775808.0).ToInteger().Int(), std::numeric_limits<long long>::min());
    EXPECT_EQ(COtxFloat(9223372036854774784.0).ToInteger().Int(), 9223372036854774784);
    EXPECT_EQ(OTX_THROWN_KIND(COtxFloat(9223372036854775808.0).ToInteger()), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(COtxFloat(-9223372036854777856.0).ToInteger()), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(COtxFloat(std::numeric_limits<double>::quiet_NaN()).ToInteger()), arithmetic);
}

TEST(ToInteger, StringsAreDecimalWithSignAndBlanksAround) {
    EXPECT_EQ(text("42").ToInteger().Int(), 42);
    EXPECT_EQ(text("  -42\t").ToInteger().Int(), -42);
    EXPECT_EQ(text("+7").ToInteger().Int(), 7);
    EXPECT_EQ(text("007").ToInteger().Int(), 7);
    EXPECT_EQ(text("9223372036854775807").ToInteger().Int(), std::numeric_limits<long long>::max());
    EXPECT_EQ(text("-9223372036854775808").ToInteger().Int(), std::numeric_limits<long long>::min());
    EXPECT_EQ(OTX_THROWN_KIND(text("9223372036854775808").ToInteger()), arithmetic);
    for (const char* bad : {"", " ", "+", "-", "+-1", "1.0", "0x10", "1 2", "one", "1e3", "--1"})
        EXPECT_EQ(OTX_THROWN_KIND(text(bad).ToInteger()), typeMismatch) << bad;
    EXPECT_EQ(OTX_THROWN_TEXT(text("abc").ToInteger()), "ToInteger of String 'abc': no integer");
}

TEST(ToInteger, ByteFieldsAreUnsignedBigEndian) {
    EXPECT_EQ(bytes({}).ToInteger().Int(), 0);
    EXPECT_EQ(bytes({0xFF}).ToInteger().Int(), 255);
    EXPECT_EQ(bytes({1, 2}).ToInteger().Int(), 258);
    EXPECT_EQ(bytes({0x7F, 255, 255, 255, 255, 255, 255, 255}).ToInteger().Int(),
              std::numeric_limits<long long>::max());
    EXPECT_EQ(OTX_THROWN_KIND(bytes({0x80, 0, 0, 0, 0, 0, 0, 0}).ToInteger()), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(bytes({0, 0, 0, 0, 0, 0, 0, 0, 1}).ToInteger()), typeMismatch);
}

TEST(ToFloat, FromEachType) {
    EXPECT_EQ(COtxInt(3).ToFloat().Float(), 3.0);
    EXPECT_EQ(COtxBool(true).ToFloat().Float(), 1.0);
    EXPECT_EQ(text("1.5").ToFloat().Float(), 1.5);
    EXPECT_EQ(text(" -1.5e2 ").ToFloat().Float(), -150.0);
    EXPECT_EQ(text("+2").ToFloat().Float(), 2.0);
    EXPECT_EQ(text(".5").ToFloat().Float(), 0.5);
    EXPECT_EQ(bytes({0x3F, 0xF8, 0, 0, 0, 0, 0, 0}).ToFloat().Float(), 1.5);
    EXPECT_EQ(bytes({0x3F, 0xC0, 0, 0}).ToFloat().Float(), 1.5);
    EXPECT_EQ(OTX_THROWN_KIND(bytes({1, 2}).ToFloat()), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(COtxList().ToFloat()), typeMismatch);
    for (const char* bad : {"", "1,5", "1.5.", "inf", "nan", "0x1p3", "1.5 V", "e5", "1e"})
        EXPECT_EQ(OTX_THROWN_KIND(text(bad).ToFloat()), typeMismatch) << bad;
    EXPECT_EQ(OTX_THROWN_KIND(text("1e999").ToFloat()), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(text("-1e999").ToFloat()), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(text((std::string(400, '9') + ".0").c_str()).ToFloat()), arithmetic);
}

TEST(ToFloat, WhatIsTooSmallIsZero) {
    EXPECT_EQ(text("1e-999").ToFloat().Float(), 0.0);
    EXPECT_EQ(shown(text("-1e-999").ToFloat()), "-0.0");
    EXPECT_EQ(text(("0." + std::string(400, '0') + "1").c_str()).ToFloat().Float(), 0.0);
    EXPECT_EQ(text("0e999").ToFloat().Float(), 0.0);
    EXPECT_EQ(text("1e-99999999999999999999").ToFloat().Float(), 0.0);
    EXPECT_EQ(text("0.001e-9223372036854775807").ToFloat().Float(), 0.0);
    EXPECT_EQ(OTX_THROWN_KIND(text("1234e9223372036854775807").ToFloat()), arithmetic);
    EXPECT_EQ(OTX_THROWN_KIND(text("1e99999999999999999999").ToFloat()), arithmetic);
}

TEST(ToString, OfEachType) {
    EXPECT_EQ(shown(COtxBool(true)), "TRUE");
    EXPECT_EQ(shown(COtxBool(false)), "FALSE");
    EXPECT_EQ(shown(COtxInt(std::numeric_limits<long long>::min())), "-9223372036854775808");
    EXPECT_EQ(shown(text("as it is")), "as it is");
    EXPECT_EQ(shown(bytes({0x0A, 0x1B, 0xFF})), "0A1BFF");
    EXPECT_EQ(shown(COtxList(std::vector<COtxValue>{COtxInt(1), text("a")})), "[1,\"a\"]");
    EXPECT_EQ(shown(COtxMap(std::map<const std::string, COtxValue>{{"k", COtxBool(true)}})), "{\"k\":true}");
    EXPECT_EQ(shown(COtxException("q", "t")), "t");
    EXPECT_EQ(shown(COtxQuantity(12.5, COtxUnit("V"), 16)), "12.5 V");
    EXPECT_EQ(shown(COtxQuantity(12.0, COtxUnit(), 16)), "12.0");
    EXPECT_EQ(shown(COtxUnit("V")), "V");
    EXPECT_EQ(shown(COtxEnumerationItem(text("T"), text("n"), COtxInt(3))), "n");
}

TEST(ToString, FloatsAreTheShortestTextThatReadsBack) {
    EXPECT_EQ(shown(COtxFloat(0.1)), "0.1");
    EXPECT_EQ(shown(COtxFloat(2)), "2.0");
    EXPECT_EQ(shown(COtxFloat(-0.0)), "-0.0");
    EXPECT_EQ(shown(COtxFloat(12.5)), "12.5");
    EXPECT_EQ(shown(COtxFloat(1e22)), "1e+22");
    EXPECT_EQ(shown(COtxFloat(1e-7)), "1e-07");
    EXPECT_EQ(shown(COtxFloat(123456)), "123456.0");
    EXPECT_EQ(shown(COtxFloat(5e-324)), "5e-324");
    EXPECT_EQ(shown(COtxFloat(std::numeric_limits<double>::infinity())), "INF");
    EXPECT_EQ(shown(COtxFloat(-std::numeric_limits<double>::infinity())), "-INF");
    EXPECT_EQ(shown(COtxFloat(std::numeric_limits<double>::quiet_NaN())), "NaN");
    for (const double value : {0.1, 1.0 / 3, 1e100, 5e-324, 1.7976931348623157e308, -2.5e-5})
        EXPECT_EQ(COtxFloat(value).ToString().ToFloat().Float(), value);
}

TEST(ToByteField, OfEachType) {
    EXPECT_EQ(hex(COtxBool(true)), "01");
    EXPECT_EQ(hex(COtxBool(false)), "00");
    EXPECT_EQ(hex(COtxInt(258)), "0000000000000102");
    EXPECT_EQ(hex(COtxInt(-2)), "FFFFFFFFFFFFFFFE");
    EXPECT_EQ(hex(COtxFloat(1.5)), "3FF8000000000000");
    EXPECT_EQ(hex(text("A\xC3\xA4")), "41C3A4");
    EXPECT_EQ(hex(bytes({1, 2})), "0102");
    EXPECT_EQ(OTX_THROWN_KIND(COtxList().ToByteField()), typeMismatch);
}

TEST(ToHexBinaryString, IsTheByteFieldInDigits) {
    const auto digits = [](const COtxValue& value) {
        return std::string(value.GetBehaviourReference()->ToHexBinaryString().String());
    };
    EXPECT_EQ(digits(COtxBool(true)), "01");
    EXPECT_EQ(digits(COtxInt(258)), "0000000000000102");
    EXPECT_EQ(digits(COtxFloat(1.5)), "3FF8000000000000");
    EXPECT_EQ(digits(text("AB")), "4142");
    EXPECT_EQ(digits(bytes({0xAB})), "AB");
    EXPECT_EQ(OTX_THROWN_KIND(digits(COtxMap())), typeMismatch);
}

TEST(ToQuantity, NumbersGetTheEmptyUnit) {
    const COtxValue fromInteger = COtxInt(3).ToQuantity();
    EXPECT_EQ(fromInteger.Type(), OTX::ValueType::Quantity);
    EXPECT_EQ(fromInteger.Quantity().GetDisplayValue().Float(), 3.0);
    EXPECT_EQ(fromInteger.Quantity().GetPrecision(), 16);
    EXPECT_EQ(fromInteger.Quantity().GetDisplayUnit().Unit().Name(), "");
    EXPECT_EQ(COtxFloat(1.5, 4).ToQuantity().Quantity().GetPrecision(), 4);
    EXPECT_EQ(OTX_THROWN_KIND(text("3").ToQuantity()), typeMismatch);
}
