// JSON in both forms, and back.
#include <limits>

#include "OnStack.h"
#include "Thrown.h"

namespace {

using OTX::FromJSON;
using tests::json;
using tests::otxJson;
using tests::typeMismatch;

using Named = std::map<const std::string, COtxValue>;
using Entries = std::map<COtxValue, COtxValue>;

COtxByteField field() { return COtxByteField(std::vector<unsigned char>{0x0A, 0x1B}); }

// Every type that can be read back.
std::vector<COtxValue> readable() {
    const double infinity = std::numeric_limits<double>::infinity();
    return {
        COtxValue(),
        COtxBool(true),
        COtxInt(0),
        COtxInt(std::numeric_limits<long long>::max()),
        COtxInt(std::numeric_limits<long long>::min()),
        COtxFloat(0.1),
        COtxFloat(-0.0),
        COtxFloat(1e300),
        COtxFloat(2),
        COtxFloat(infinity),
        COtxFloat(-infinity),
        COtxFloat(std::numeric_limits<double>::quiet_NaN()),
        COtxString("text \"quoted\" \\ \n\t\x01 \xC3\xA4 \xF0\x9F\x98\x80"),
        COtxString(std::string("a\0b", 3)),
        COtxByteField(),
        field(),
        COtxList(std::vector<COtxValue>{COtxInt(1), COtxList(), field()}),
        COtxMap(),
        COtxMap(Named{{"a", COtxInt(1)}, {"b", field()}}),
        COtxMap(Entries{{COtxInt(1), COtxString("one")}, {field(), COtxMap()}, {COtxString("k"), COtxValue()}}),
        COtxMap(Named{{"ByteField", COtxString("0A1B")}}),
        COtxMap(Named{{"Map", COtxList()}}),
        COtxMap(Named{{"DiagService", COtxString("x")}}),
        COtxMap(Named{{"ByteField", COtxString("0A")}, {"other", COtxInt(1)}}),
        COtxQuantity(12.5, COtxUnit("V"), 16),
        COtxQuantity(12.0, COtxUnit(), 3),
        COtxUnit("V"),
        COtxUnit(),
        COtxException("q", "t"),
        COtxException(OTX::Exceptions_e::LossOfComException),
        COtxEnumerationItem(COtxString("T"), COtxString("N"), COtxInt(3)),
        COtxEnumerationItem(COtxString("T"), COtxString("N"), field()),
        COtxResultState(COtxResultState::Negative),
        COtxResponseState(COtxResponseState::Positive),
        COtxComChannelState(COtxComChannelState::Offline),
        COtxMessageType(COtxMessageType::YesNoQuestion),
        COtxConfirmationType(COtxConfirmationType::Cancel),
        COtxLogLevel(COtxLogLevel::Warn),
        COtxStringEncoding(COtxStringEncoding::Utf16LE),
    };
}

}  // namespace

TEST(JsonPlain, CarriesNativeTypes) {
    EXPECT_EQ(json(COtxValue()), "null");
    EXPECT_EQ(json(COtxBool(true)), "true");
    EXPECT_EQ(json(COtxBool(false)), "false");
    EXPECT_EQ(json(COtxInt(-7)), "-7");
    EXPECT_EQ(json(COtxFloat(2)), "2.0");
    EXPECT_EQ(json(COtxFloat(1e300)), "1e+300");
    EXPECT_EQ(json(COtxString("a\"b\\\n\x01/")), R"("a\"b\\\n\u0001/")");
    EXPECT_EQ(json(COtxList(std::vector<COtxValue>{COtxInt(1), COtxValue()})), "[1,null]");
    EXPECT_EQ(json(COtxList()), "[]");
    EXPECT_EQ(json(COtxInt(1)), COtxInt(1).ToJSON().String());
    EXPECT_EQ(COtxInt(1).ToJSON().Type(), OTX::ValueType::String);
}

TEST(JsonPlain, MapsAreObjectsOrPairs) {
    EXPECT_EQ(json(COtxMap()), "{}");
    EXPECT_EQ(json(COtxMap(Named{{"b", COtxInt(2)}, {"a", COtxInt(1)}})), R"({"a":1,"b":2})");
    EXPECT_EQ(json(COtxMap(Entries{{COtxInt(1), COtxInt(2)}, {COtxString("x"), COtxInt(3)}})), R"([[1,2],["x",3]])");
    EXPECT_EQ(json(COtxMap(Named{{"ByteField", COtxString("0A")}})), R"({"ByteField":"0A"})");
}

TEST(JsonPlain, OtherTypesAreTheirText) {
    EXPECT_EQ(json(field()), R"("0A1B")");
    EXPECT_EQ(json(COtxLogLevel(COtxLogLevel::Warn)), R"("WARN")");
    EXPECT_EQ(json(COtxException("q", "t")), R"("t")");
    EXPECT_EQ(json(COtxQuantity(12.5, COtxUnit("V"), 16)), R"("12.5 V")");
    EXPECT_EQ(json(COtxUnit("V")), R"("V")");
    EXPECT_EQ(json(COtxEnumerationItem(COtxString("T"), COtxString("N"), COtxInt(3))), R"("N")");
    EXPECT_EQ(json(COtxFloat(std::numeric_limits<double>::infinity())), "null");
}

TEST(JsonOtx, MarksWhatJsonDoesNotCarry) {
    EXPECT_EQ(otxJson(field()), R"({"ByteField":"0A1B"})");
    EXPECT_EQ(otxJson(COtxMap(Entries{{COtxInt(1), field()}})), R"({"Map":[[1,{"ByteField":"0A1B"}]]})");
    EXPECT_EQ(otxJson(COtxQuantity(12.5, COtxUnit("V"), 16)),
              R"({"Quantity":{"precision":16,"unit":"V","value":12.5}})");
    EXPECT_EQ(otxJson(COtxUnit("V")), R"({"Unit":"V"})");
    EXPECT_EQ(otxJson(COtxException("q", "t")),
              R"({"Exception":{"qualifier":"q","text":"t","type":"UserException"}})");
    EXPECT_EQ(otxJson(COtxEnumerationItem(COtxString("T"), COtxString("N"), COtxInt(3))),
              R"({"Enumeration":{"name":"N","type":"T","value":3}})");
    EXPECT_EQ(otxJson(COtxResultState(COtxResultState::AllFailed)), R"({"ResultState":"ALL_FAILED"})");
    EXPECT_EQ(otxJson(COtxStringEncoding(COtxStringEncoding::Utf8)), R"({"Encoding":"UTF-8"})");
    EXPECT_EQ(otxJson(COtxFloat(std::numeric_limits<double>::quiet_NaN())), R"({"Float":"NaN"})");
    EXPECT_EQ(otxJson(COtxInt(1)), "1");
    EXPECT_EQ(otxJson(COtxMap(Named{{"a", COtxInt(1)}})), R"({"a":1})");
}

TEST(JsonOtx, EscapesMapsThatWouldReadAsATypedValue) {
    EXPECT_EQ(otxJson(COtxMap(Named{{"ByteField", COtxString("0A")}})), R"({"Map":[["ByteField","0A"]]})");
    EXPECT_EQ(otxJson(COtxMap(Named{{"Map", COtxInt(1)}})), R"({"Map":[["Map",1]]})");
    EXPECT_EQ(otxJson(COtxMap(Named{{"Boolean", COtxInt(1)}})), R"({"Boolean":1})");
    EXPECT_EQ(otxJson(COtxMap(Named{{"Unit", COtxInt(1)}, {"x", COtxInt(2)}})), R"({"Unit":1,"x":2})");
}

TEST(JsonOtx, TheFlagReachesAllThatAValueHoldsAndNothingElse) {
    const COtxValue inner = field();
    const COtxMap message(Named{{"flagged", COtxList(std::vector<COtxValue>{inner})}, {"plain", field()}});
    message.Map().at(COtxString("flagged")).SetOTXJSON(true);
    EXPECT_EQ(json(message), R"({"flagged":[{"ByteField":"0A1B"}],"plain":"0A1B"})");
    EXPECT_EQ(json(inner), R"("0A1B")");
    EXPECT_EQ(message.ToString().String(), R"({"flagged":["0A1B"],"plain":"0A1B"})");
    message.Map().at(COtxString("flagged")).SetOTXJSON(false);
    EXPECT_EQ(json(message), R"({"flagged":["0A1B"],"plain":"0A1B"})");
}

TEST(JsonOtx, TheFlagOfACopyDoesNotLeak) {
    for (const COtxValue& original : readable()) {
        const std::string before = json(original);
        const COtxValue copy = OTX::DeepCopy(original);
        copy.SetOTXJSON(true);
        EXPECT_EQ(json(original), before);
    }
}

TEST(JsonOtx, ReadsBackToEqualValues) {
    for (const COtxValue& value : readable()) {
        const std::string text = otxJson(value);
        const COtxValue read = FromJSON(text);
        EXPECT_TRUE(read == value) << text;
        EXPECT_EQ(read.Type(), value.Type()) << text;
        EXPECT_EQ(otxJson(read), text);
        // Within others as well.
        const COtxValue within = FromJSON(otxJson(COtxList(std::vector<COtxValue>{value})));
        EXPECT_TRUE(within.List()[0] == value) << text;
    }
}

TEST(JsonOtx, ReadsEnumerationsThatOtherModulesMake) {
    const COtxValue audience = FromJSON(R"({"Audience":"DEVELOPMENT"})");
    EXPECT_EQ(audience.Type(), OTX::ValueType::Audience);
    EXPECT_EQ(audience.Int(), 1);
    EXPECT_EQ(audience.ToString().String(), "DEVELOPMENT");
    EXPECT_EQ(FromJSON(R"({"ConnectionStatus":"eCS_NOTCONNECTED"})").Int(), 2);
}

TEST(JsonText, WritesValidUtf8WhateverTheBytes) {
    EXPECT_EQ(json(COtxString("a\xFFz")), "\"a\xEF\xBF\xBDz\"");
    EXPECT_EQ(json(COtxString("\xED\xA0\x80")), "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\"");
}

TEST(FromJson, ReadsPlainJson) {
    EXPECT_EQ(FromJSON("null").Type(), OTX::ValueType::Empty);
    EXPECT_TRUE(FromJSON("true").Bool());
    EXPECT_EQ(FromJSON("42").Type(), OTX::ValueType::Integer);
    EXPECT_EQ(FromJSON("-9223372036854775808").Int(), std::numeric_limits<long long>::min());
    EXPECT_EQ(FromJSON("1.0").Type(), OTX::ValueType::Float);
    EXPECT_EQ(FromJSON("1e3").Float(), 1000.0);
    EXPECT_EQ(FromJSON("1E-999").Float(), 0.0);
    EXPECT_EQ(FromJSON(R"("\u00e4\ud83d\ude00")").String(), "\xC3\xA4\xF0\x9F\x98\x80");
    const COtxValue map = FromJSON(R"( {"a": [1, {"b": null}], "a2": {}} )");
    EXPECT_EQ(json(map), R"({"a":[1,{"b":null}],"a2":{}})");
    EXPECT_EQ(FromJSON(R"({"k":1,"k":2})").Map().at(COtxString("k")).Int(), 2);
}

TEST(FromJson, RefusesNumbersItCannotCarry) {
    EXPECT_EQ(OTX_THROWN_TEXT(FromJSON("[1,\n 9223372036854775808]")),
              "JSON, line 2, column 21: the integer is beyond 64 bits");
    EXPECT_EQ(OTX_THROWN_KIND(FromJSON("-9223372036854775809")), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(FromJSON("18446744073709551616")), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(FromJSON("1e999")), typeMismatch);
}

TEST(FromJson, TellsWhereTheTextIsWrong) {
    for (const char* bad : {"", "{", "[1,]", "{\"a\"}", "tru", "1 2", "'a'", "\"\x01\"", "\"\xFF\"", "01", "{\"a\":1,}"})
        EXPECT_EQ(OTX_THROWN_KIND(FromJSON(bad)), typeMismatch) << bad;
    const std::string text = OTX_THROWN_TEXT(FromJSON("{\n  \"a\": tru\n}"));
    EXPECT_TRUE(text.starts_with("JSON, line 3, column 0: ") || text.starts_with("JSON, line 2, column 11: ")) << text;
    EXPECT_NE(text.find("invalid literal"), std::string::npos) << text;
}

TEST(FromJson, RefusesTypedObjectsThatDontFitTheirType) {
    for (const char* bad :
         {R"({"ByteField":"0"})", R"({"ByteField":5})", R"({"Map":{}})", R"({"Map":[[1]]})", R"({"Map":[1]})",
          R"({"Quantity":1})", R"({"Quantity":{"value":"x","unit":"V","precision":1}})",
          R"({"Quantity":{"value":1,"unit":"V","precision":99999999999}})",
          R"({"Quantity":{"value":1,"unit":"V"}})", R"({"Unit":1})",
          R"({"Exception":{"type":"NoSuch","qualifier":"","text":""}})",
          R"({"Exception":"x"})", R"({"Enumeration":{"type":1,"name":"n","value":1}})", R"({"ResultState":"NO"})",
          R"({"ResultState":1})", R"({"Float":"x"})", R"({"Float":1.5})"})
        EXPECT_EQ(OTX_THROWN_KIND(FromJSON(bad)), typeMismatch) << bad;
    EXPECT_EQ(OTX_THROWN_TEXT(FromJSON(R"([{"ByteField":5}])")),
              "JSON, line 1, column 16: \"ByteField\" needs a string of hexadecimal digits, two a byte");
}

TEST(FromJson, LimitsTheNesting) {
    if (!tests::deepCallsFit) GTEST_SKIP() << "the thread sanitizer bears no deep calls";
    const auto text = [](std::size_t depth) { return std::string(depth, '[') + std::string(depth, ']'); };
    // What can be read can be written, on a stack that bears it in every kind of build.
    tests::onStack(64 * 1024 * 1024, [&] { EXPECT_EQ(json(FromJSON(text(10000))), text(10000)); });
    EXPECT_EQ(OTX_THROWN_KIND(FromJSON(text(10001))), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(FromJSON(std::string(5000000, '['))), typeMismatch);
    tests::onStack(tests::smallStack, [&] { EXPECT_EQ(FromJSON(text(10000)).List().size(), 1u); });
}
