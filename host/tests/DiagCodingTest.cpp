// Values in PDUs: each coding both ways, each type that can be asked for, and what is refused.
#include "DiagFakes.h"

#include "diag/CodedValue.h"

#include <otx/value/Values.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <functional>
#include <limits>

namespace velkotx::host {
namespace {

using namespace testing;
using OTX::ValueType;

ParameterDescription number(Coding coding, std::size_t bits, unsigned position = 0) {
    ParameterDescription parameter;
    parameter.name = "P";
    parameter.coding = coding;
    parameter.bitLength = bits;
    parameter.bitPosition = position;
    return parameter;
}

Bytes written(const COtxValue& value, const ParameterDescription& parameter, Bytes pdu = {}) {
    writeCoded(pdu, 0, encoded(value, parameter), parameter);
    return pdu;
}

COtxValue read(const Bytes& pdu, const ParameterDescription& parameter, ValueType type = ValueType::Empty) {
    const std::size_t size =
        parameter.extent == Extent::Fixed ? fixedSize(parameter) : pdu.size();
    return decoded(readCoded(pdu, 0, size, parameter), parameter, type);
}

TEST(DiagCoding, WholeNumbersBothWays) {
    struct Case {
        ParameterDescription parameter;
        long long value;
        Bytes bytes;
    };
    auto low = number(Coding::Unsigned, 24);
    low.byteOrder = ByteOrder::LowFirst;
    auto lowSigned = number(Coding::Signed, 12, 2);
    lowSigned.byteOrder = ByteOrder::LowFirst;
    const Case cases[] = {
        {number(Coding::Unsigned, 8), 200, {0xC8}},
        {number(Coding::Unsigned, 16), 0x1234, {0x12, 0x34}},
        {low, 0x123456, {0x56, 0x34, 0x12}},
        {number(Coding::Unsigned, 3, 2), 5, {0x14}},
        {number(Coding::Unsigned, 12, 4), 0xABC, {0xAB, 0xC0}},
        {number(Coding::Unsigned, 1, 7), 1, {0x80}},
        {number(Coding::Unsigned, 64, 4), 0x0123456789ABCDEF, {0x00, 0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC, 0xDE, 0xF0}},
        {number(Coding::Signed, 8), -2, {0xFE}},
        {number(Coding::Signed, 8), -128, {0x80}},
        {number(Coding::Signed, 2), -2, {0x02}},
        {number(Coding::Signed, 64), std::numeric_limits<long long>::min(), {0x80, 0, 0, 0, 0, 0, 0, 0}},
        {number(Coding::Signed, 64), -1, {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}},
        {lowSigned, -3, {0xF4, 0x3F}},
        {number(Coding::Bcd, 16), 1907, {0x19, 0x07}},
        {number(Coding::Bcd, 64), 1234567890123456, {0x12, 0x34, 0x56, 0x78, 0x90, 0x12, 0x34, 0x56}},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(written(COtxInt(one.value), one.parameter), one.bytes) << one.value;
        const COtxValue back = read(one.bytes, one.parameter);
        EXPECT_EQ(back.Type(), ValueType::Integer);
        EXPECT_EQ(back.Int(), one.value);
    }
}

TEST(DiagCoding, OtherBitsStay) {
    EXPECT_EQ(written(COtxInt(0), number(Coding::Unsigned, 3, 2), {0xFF}), (Bytes{0xE3}));
    EXPECT_EQ(written(COtxInt(5), number(Coding::Unsigned, 10, 3), {0xFF, 0xFF, 0xFF}), (Bytes{0xE0, 0x2F, 0xFF}));
}

TEST(DiagCoding, UnsignedBeyondIntegerIsAFloat) {
    const COtxValue value = read({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, number(Coding::Unsigned, 64));
    EXPECT_EQ(value.Type(), ValueType::Float);
    EXPECT_EQ(value.Float(), 18446744073709551616.0);
}

TEST(DiagCoding, FloatsBothWays) {
    EXPECT_EQ(written(COtxFloat(1.5), number(Coding::Float, 32)), (Bytes{0x3F, 0xC0, 0, 0}));
    EXPECT_EQ(read({0x3F, 0xC0, 0, 0}, number(Coding::Float, 32)).Float(), 1.5);
    const auto wide = number(Coding::Float, 64);
    EXPECT_EQ(read(written(COtxFloat(-0.1), wide), wide).Float(), -0.1);
    EXPECT_TRUE(std::isnan(read({0x7F, 0xC0, 0, 0}, number(Coding::Float, 32)).Float()));
}

TEST(DiagCoding, FloatsBeyondTheirBitsAreRefused) {
    std::string why;
    EXPECT_EQ(kindOf([] { written(COtxFloat(1e39), number(Coding::Float, 32)); }, &why), 7);
    EXPECT_NE(why.find("parameter 'P': "), std::string::npos);
    EXPECT_NE(why.find(" doesn't fit into 32 bits"), std::string::npos);
    EXPECT_EQ(kindOf([] { written(COtxFloat(-1e300), number(Coding::Float, 32)); }), 7);
    EXPECT_EQ(written(COtxFloat(HUGE_VAL), number(Coding::Float, 32)), (Bytes{0x7F, 0x80, 0, 0}));
    EXPECT_EQ(kindOf([] { written(COtxFloat(1e300), number(Coding::Float, 64)); }), -1);
}

TEST(DiagCoding, IntegersBeyond64BitsAreADiagComException) {
    std::string why;
    const auto parameter = number(Coding::Unsigned, 64);
    EXPECT_EQ(kindOf([&] { read({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, parameter, ValueType::Integer); }, &why), 7);
    EXPECT_EQ(why, "parameter 'P': 18446744073709551615 is beyond a 64-bit Integer");
    EXPECT_EQ(read({0x7F, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, parameter, ValueType::Integer).Int(),
              std::numeric_limits<long long>::max());
    EXPECT_EQ(kindOf([] { read({0x7F, 0x80, 0, 0}, number(Coding::Float, 32), ValueType::Integer); }, &why), 7);
    EXPECT_NE(why.find("parameter 'P': "), std::string::npos);
}

TEST(DiagCoding, WholeNumbersAreRounded) {
    const auto parameter = number(Coding::Signed, 8);
    EXPECT_EQ(written(COtxFloat(1.4), parameter), (Bytes{1}));
    EXPECT_EQ(written(COtxFloat(1.5), parameter), (Bytes{2}));
    EXPECT_EQ(written(COtxFloat(2.5), parameter), (Bytes{3}));
    EXPECT_EQ(written(COtxFloat(-2.5), parameter), (Bytes{0xFD}));
    EXPECT_EQ(written(COtxFloat(127.4), parameter), (Bytes{127}));
    EXPECT_EQ(kindOf([&] { written(COtxFloat(127.5), parameter); }), 7);
}

// Whatever fails in a conversion, the parameter is told, and kinds that say nothing of diagnostics become kind 7.
TEST(DiagCoding, FailuresNameTheParameter) {
    auto voltage = number(Coding::Unsigned, 16);
    voltage.unit = "V";
    auto text = number(Coding::Utf8, 16);
    const auto state = [] {
        auto table = number(Coding::TextTable, 8);
        table.texts = {{0, 9, "on"}};
        return table;
    }();
    const auto tell = [](int kind, const std::function<void()>& action) {
        std::string why;
        EXPECT_EQ(kindOf(action, &why), kind) << why;
        EXPECT_EQ(why.rfind("parameter 'P': ", 0), 0u) << why;
    };
    tell(5, [&] { written(COtxString("x"), voltage); });
    tell(5, [&] { written(COtxList(), number(Coding::Boolean, 8)); });
    tell(5, [&] { written(COtxList(), state); });
    tell(5, [&] { written(COtxList(), number(Coding::ByteField, 8)); });
    tell(18, [&] { written(COtxQuantity(1, COtxUnit("degC"), 5), voltage); });
    tell(7, [&] { read({0xC3, 0x28}, text); });
    tell(5, [&] { read({'a', 'b'}, text, ValueType::Float); });
    tell(5, [&] { read({0x00, 0x01}, voltage, ValueType::List); });
}

TEST(DiagCoding, TablesAndBooleansAreTheirNumbers) {
    auto state = number(Coding::TextTable, 8);
    state.texts = {{0, 0, "off"}, {1, 9, "on"}};
    EXPECT_TRUE(read({0x01}, state, ValueType::Boolean).Bool());
    EXPECT_FALSE(read({0x00}, state, ValueType::Boolean).Bool());
    EXPECT_EQ(read({0x02}, state, ValueType::Quantity).Quantity().GetDisplayValue().Float(), 2.0);
    const auto flag = number(Coding::Boolean, 8);
    EXPECT_EQ(read({0x10}, flag, ValueType::Quantity).Quantity().GetDisplayValue().Float(), 1.0);
    EXPECT_EQ(read({0x10}, flag, ValueType::Float).Float(), 1.0);
}

TEST(DiagCoding, ByteFieldsOfNumbersAreHighFirst) {
    auto low = number(Coding::Unsigned, 16);
    low.byteOrder = ByteOrder::LowFirst;
    const COtxValue field = read({0x34, 0x12}, low, ValueType::ByteField);
    EXPECT_EQ(static_cast<const std::vector<unsigned char>&>(field.ByteField()), (Bytes{0x12, 0x34}));
}

TEST(DiagCoding, LengthsAreExplained) {
    std::string why;
    EXPECT_EQ(kindOf([] { written(COtxString("0102"), number(Coding::ByteField, 16)); }, &why), 7);
    EXPECT_EQ(why, "parameter 'P': 4 bytes instead of 2; a String is the bytes of its characters");
    EXPECT_EQ(kindOf([] { written(COtxByteField({'A', 'B', 'C', 'D'}), number(Coding::Ascii, 32)); }, &why), 7);
    EXPECT_EQ(why, "parameter 'P': 41424344 is longer than 4 bytes; as a text, a ByteField is its digits");
    EXPECT_EQ(kindOf([] { written(COtxInt(-1), number(Coding::Unsigned, 64)); }, &why), 7);
    EXPECT_EQ(why, "parameter 'P': -1 is negative");
}

TEST(DiagCoding, ScalingUnitAndPrecision) {
    auto voltage = number(Coding::Unsigned, 16);
    voltage.scaling = {0.01, -2};
    voltage.unit = "V";
    voltage.decimals = 2;
    EXPECT_EQ(written(COtxFloat(12.34), voltage), (Bytes{0x05, 0x9A}));
    const COtxValue value = read({0x05, 0x9A}, voltage);
    ASSERT_EQ(value.Type(), ValueType::Quantity);
    EXPECT_NEAR(value.Quantity().GetDisplayValue().Float(), 12.34, 1e-9);
    EXPECT_EQ(value.Quantity().GetDisplayUnit().Unit().Name(), "V");
    EXPECT_EQ(value.Quantity().GetPrecision(), 4);
    EXPECT_NEAR(read({0x05, 0x9A}, voltage, ValueType::Float).Float(), 12.34, 1e-9);
    EXPECT_EQ(read({0x05, 0x9A}, voltage, ValueType::Integer).Int(), 12);
    EXPECT_TRUE(read({0x05, 0x9A}, voltage, ValueType::Boolean).Bool());
    EXPECT_FALSE(read({0x00, 0xC8}, voltage, ValueType::Boolean).Bool());
    const COtxValue bytes = read({0x05, 0x9A}, voltage, ValueType::ByteField);
    EXPECT_EQ(static_cast<const std::vector<unsigned char>&>(bytes.ByteField()), (Bytes{0x05, 0x9A}));
    EXPECT_EQ(written(COtxQuantity(12.34, COtxUnit("V"), 4), voltage), (Bytes{0x05, 0x9A}));
    EXPECT_EQ(written(COtxString("12.34"), voltage), (Bytes{0x05, 0x9A}));
}

TEST(DiagCoding, QuantitiesAreConverted) {
    auto voltage = number(Coding::Unsigned, 16);
    voltage.scaling = {0.01, 0};
    voltage.unit = "V";
    EXPECT_EQ(written(COtxQuantity(12340, COtxUnit("mV"), 5), voltage), (Bytes{0x04, 0xD2}));
    EXPECT_EQ(written(COtxQuantity(12.34, COtxUnit(), 4), voltage), (Bytes{0x04, 0xD2}));
    EXPECT_EQ(kindOf([&] { written(COtxQuantity(1, COtxUnit("m"), 5), voltage); }), 18);
}

TEST(DiagCoding, ScaledWholeNumbersAreWholeAsIntegers) {
    auto hundredth = number(Coding::Unsigned, 16);
    hundredth.scaling = {0.29, 0};
    EXPECT_EQ(read({0x00, 0x64}, hundredth, ValueType::Integer).Int(), 29);
    hundredth.scaling = {0.299, 0};
    EXPECT_EQ(read({0x00, 0x64}, hundredth, ValueType::Integer).Int(), 29);
}

TEST(DiagCoding, NumbersAsText) {
    auto parameter = number(Coding::Unsigned, 8);
    EXPECT_EQ(std::string(read({0x2A}, parameter, ValueType::String).String()), "42");
    parameter.unit = "V";
    EXPECT_EQ(std::string(read({0x2A}, parameter, ValueType::String).String()), "42");
}

TEST(DiagCoding, Booleans) {
    const auto flag = number(Coding::Boolean, 2, 3);
    EXPECT_EQ(written(COtxBool(true), flag, {0x00}), (Bytes{0x08}));
    EXPECT_EQ(written(COtxInt(7), flag, {0x00}), (Bytes{0x08}));
    EXPECT_EQ(written(COtxBool(false), flag, {0xFF}), (Bytes{0xE7}));
    EXPECT_TRUE(read({0x10}, flag).Bool());
    EXPECT_FALSE(read({0x07}, flag).Bool());
    EXPECT_EQ(read({0x10}, flag, ValueType::Integer).Int(), 1);
}

TEST(DiagCoding, Texts) {
    const auto vin = number(Coding::Ascii, 48);
    EXPECT_EQ(written(COtxString("VIN"), vin), (Bytes{'V', 'I', 'N', 0, 0, 0}));
    EXPECT_EQ(std::string(read({'V', 'I', 'N', 0, 0, 0}, vin).String()), "VIN");
    EXPECT_EQ(written(COtxInt(42), vin), (Bytes{'4', '2', 0, 0, 0, 0}));
    EXPECT_EQ(read({'4', '2', 0, 0, 0, 0}, vin, ValueType::Integer).Int(), 42);
    auto text = number(Coding::Utf8, 8);
    text.extent = Extent::Rest;
    EXPECT_EQ(written(COtxString("\xC3\xA4"), text), (Bytes{0xC3, 0xA4}));
    EXPECT_EQ(std::string(read({0xC3, 0xA4}, text).String()), "\xC3\xA4");
    EXPECT_EQ(kindOf([&] { written(COtxString("\xC3\xA4"), vin); }), 7);
    EXPECT_EQ(kindOf([&] { written(COtxString("too long"), vin); }), 7);
    EXPECT_EQ(kindOf([&] { read({'x', 0, 0, 0, 0, 0}, vin, ValueType::List); }), 5);
}

TEST(DiagCoding, ByteFields) {
    const auto key = number(Coding::ByteField, 16);
    EXPECT_EQ(written(COtxByteField({0x01, 0x02}), key), (Bytes{0x01, 0x02}));
    const COtxValue value = read({0x01, 0x02}, key);
    EXPECT_EQ(value.Type(), ValueType::ByteField);
    EXPECT_EQ(kindOf([&] { written(COtxByteField({0x01}), key); }), 7);
    EXPECT_EQ(kindOf([&] { written(COtxList(), key); }), 5);
}

TEST(DiagCoding, TextTables) {
    auto state = number(Coding::TextTable, 8);
    state.texts = {{0, 0, "off"}, {1, 9, "on"}};
    EXPECT_EQ(written(COtxString("on"), state), (Bytes{0x01}));
    EXPECT_EQ(written(COtxInt(7), state), (Bytes{0x07}));
    EXPECT_EQ(std::string(read({0x09}, state).String()), "on");
    EXPECT_EQ(read({0x09}, state, ValueType::Integer).Int(), 9);
    EXPECT_EQ(read({0x09}, state, ValueType::Float).Float(), 9.0);
    EXPECT_EQ(kindOf([&] { read({0x0A}, state); }), 7);
    EXPECT_EQ(read({0x0A}, state, ValueType::Integer).Int(), 10);
    EXPECT_EQ(kindOf([&] { written(COtxString("broken"), state); }), 7);
    EXPECT_EQ(kindOf([&] { written(COtxInt(10), state); }), 7);
    EXPECT_EQ(kindOf([&] { written(COtxInt(-1), state); }), 7);
}

TEST(DiagCoding, WhatDoesntFitIsRefused) {
    EXPECT_EQ(kindOf([] { written(COtxInt(256), number(Coding::Unsigned, 8)); }), 7);
    EXPECT_EQ(kindOf([] { written(COtxInt(-1), number(Coding::Unsigned, 8)); }), 7);
    EXPECT_EQ(kindOf([] { written(COtxInt(128), number(Coding::Signed, 8)); }), 7);
    EXPECT_EQ(kindOf([] { written(COtxInt(-129), number(Coding::Signed, 8)); }), 7);
    EXPECT_EQ(kindOf([] { written(COtxInt(100), number(Coding::Bcd, 8)); }), 7);
    EXPECT_EQ(kindOf([] { written(COtxFloat(1e30), number(Coding::Unsigned, 64)); }), 7);
    EXPECT_EQ(kindOf([] { written(COtxFloat(std::nan("")), number(Coding::Unsigned, 8)); }), 7);
    EXPECT_EQ(kindOf([] { written(COtxFloat(HUGE_VAL), number(Coding::Signed, 64)); }), 7);
    EXPECT_EQ(kindOf([] { written(COtxMap(), number(Coding::Unsigned, 8)); }), 5);
    EXPECT_EQ(kindOf([] { written(COtxValue(), number(Coding::Unsigned, 8)); }), 5);
    EXPECT_EQ(kindOf([] { read({0x1A}, number(Coding::Bcd, 8)); }), 7);
    auto nothing = number(Coding::Unsigned, 8);
    nothing.scaling = {0, 0};
    EXPECT_EQ(kindOf([&] { written(COtxInt(1), nothing); }), 7);
}

TEST(DiagCoding, LimitsAreThoseOfThePhysicalValue) {
    auto speed = number(Coding::Unsigned, 16);
    speed.scaling = {0.5, 0};
    speed.minimum = 10;
    speed.maximum = 250;
    EXPECT_EQ(written(COtxInt(250), speed), (Bytes{0x01, 0xF4}));
    EXPECT_EQ(kindOf([&] { written(COtxFloat(250.5), speed); }), 7);
    EXPECT_EQ(kindOf([&] { written(COtxInt(9), speed); }), 7);
    // What comes is shown as it is.
    EXPECT_EQ(read({0x00, 0x00}, speed).Float(), 0.0);
}

TEST(DiagCoding, PlainValues) {
    EXPECT_TRUE(toValue(PlainValue(true)).Bool());
    EXPECT_EQ(toValue(PlainValue(std::int64_t{7})).Int(), 7);
    EXPECT_EQ(toValue(PlainValue(2.5)).Float(), 2.5);
    EXPECT_EQ(std::string(toValue(PlainValue(std::string("x"))).String()), "x");
    EXPECT_EQ(toValue(PlainValue(Bytes{1})).Type(), ValueType::ByteField);
    EXPECT_EQ(toValue(PlainValue()).Type(), ValueType::Empty);
}

}  // namespace
}  // namespace velkotx::host
