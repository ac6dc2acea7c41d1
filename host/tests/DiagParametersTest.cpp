// Requests and responses as trees of parameters: paths, structures, repetitions, counters, defaults, constants.
#include "DiagFakes.h"

#include "diag/DiagRequest.h"
#include "diag/DiagResponse.h"

#include <otx/diag/IParameter.h>
#include <otx/value/Values.h>

#include <gtest/gtest.h>

namespace velkotx::host {
namespace {

using namespace testing;
using OTX::ValueType;

ParameterDescription value(const std::string& name, std::size_t bits, Coding coding = Coding::Unsigned) {
    ParameterDescription parameter;
    parameter.name = name;
    parameter.coding = coding;
    parameter.bitLength = bits;
    return parameter;
}

ParameterDescription complex(const std::string& name, ParameterKind kind, std::vector<ParameterDescription> fields,
                             Extent extent = Extent::Fixed) {
    ParameterDescription parameter;
    parameter.name = name;
    parameter.kind = kind;
    parameter.fields = std::move(fields);
    parameter.extent = extent;
    return parameter;
}

COtxValue path(std::initializer_list<COtxValue> steps) { return COtxList(std::vector<COtxValue>(steps)); }
COtxValue text(const char* name) { return COtxString(name); }

Bytes pduOf(DiagRequest& request) {
    const COtxValue pdu = request.GetPdu();
    return static_cast<const std::vector<unsigned char>&>(pdu.ByteField());
}

std::shared_ptr<DiagRequest> makeRequest(std::vector<ParameterDescription> parameters, Bytes prefix = {0x2E, 0x01}) {
    auto message = std::make_shared<MessageDescription>();
    message->name = "Request";
    message->prefix = std::move(prefix);
    message->parameters = std::move(parameters);
    return std::make_shared<DiagRequest>(message);
}

std::shared_ptr<DiagResponse> makeReply(std::vector<ParameterDescription> parameters, Bytes bytes) {
    auto service = std::make_shared<ServiceDescription>();
    service->name = "Service";
    service->positive.push_back({"Reply", {0x6E, 0x01}, std::move(parameters)});
    return makeResponse(service, {"Engine", std::move(bytes), 5ms});
}

void set(OTX::IParameterContainer& container, const COtxValue& where, const COtxValue& what) {
    container.GetParameterByPath(where).Parameter().SetParameterValue(what);
}
COtxValue get(OTX::IParameterContainer& container, const COtxValue& where, ValueType type = ValueType::Empty) {
    return container.GetParameterByPath(where).Parameter().GetParameterValue(type);
}

TEST(DiagRequestParameters, AreSetByPathStepAndSemantic) {
    auto first = value("first", 8);
    auto second = value("second", 16);
    second.semantic = "DATA";
    const auto request = makeRequest({first, second, value("third", 8)});
    set(request->Container(), path({text("first")}), COtxInt(1));
    request->Container().SetParameterValueBySemantic(text("DATA"), COtxInt(0x0203));
    request->Container().GetParameterByStep(COtxInt(2)).Parameter().SetParameterValue(COtxInt(4));
    EXPECT_EQ(pduOf(*request), (Bytes{0x2E, 0x01, 1, 2, 3, 4}));
    EXPECT_EQ(std::string(request->Container().GetParameterBySemantic(text("DATA")).Parameter().GetParameterName().String()),
              "second");
    EXPECT_EQ(request->Container().GetParameterAsList().List().size(), 3u);
    EXPECT_EQ(get(request->Container(), path({COtxInt(1)}), ValueType::Integer).Int(), 0x0203);
}

TEST(DiagRequestParameters, AWrongPathIsAnUnknownTarget) {
    const auto request = makeRequest({value("first", 8)});
    std::string why;
    EXPECT_EQ(kindOf([&] { request->Container().GetParameterByPath(path({text("last")})); }, &why), 8);
    EXPECT_EQ(why, "'Request' has no parameter 'last'; there are 'first'");
    EXPECT_EQ(kindOf([&] { request->Container().GetParameterByPath(path({COtxInt(1)})); }), 8);
    EXPECT_EQ(kindOf([&] { request->Container().GetParameterByPath(path({COtxInt(-1)})); }), 8);
    EXPECT_EQ(kindOf([&] { request->Container().GetParameterByPath(path({})); }), 8);
    EXPECT_EQ(kindOf([&] { request->Container().GetParameterByPath(path({text("first"), text("x")})); }), 8);
    EXPECT_EQ(kindOf([&] { request->Container().GetParameterByPath(text("first")); }), 5);
    EXPECT_EQ(kindOf([&] { request->Container().GetParameterByPath(path({COtxBool(true)})); }), 5);
    EXPECT_EQ(kindOf([&] { request->Container().GetParameterBySemantic(text("DATA")); }), 8);
}

TEST(DiagRequestParameters, ASemanticMayBeAmbiguous) {
    auto one = value("one", 8);
    one.semantic = "DATA";
    auto other = value("other", 8);
    other.semantic = "DATA";
    const auto request = makeRequest({one, complex("inner", ParameterKind::Structure, {other})});
    EXPECT_EQ(kindOf([&] { request->Container().GetParameterBySemantic(text("DATA")); }), 9);
    EXPECT_EQ(kindOf([&] { request->Container().SetParameterValueBySemantic(text("DATA"), COtxInt(1)); }), 9);
}

TEST(DiagRequestParameters, WhatIsNotSetIsIncompleteUnlessThereIsADefault) {
    auto defaulted = value("defaulted", 8);
    defaulted.defaultValue = std::int64_t{7};
    auto fixed = value("fixed", 8);
    fixed.constant = std::int64_t{0x55};
    const auto request = makeRequest({value("needed", 8), defaulted, fixed});
    std::string why;
    EXPECT_EQ(kindOf([&] { request->GetPdu(); }, &why), 11);
    EXPECT_EQ(why, "parameter 'needed' of 'Request' has not been set");
    EXPECT_EQ(kindOf([&] { get(request->Container(), path({text("needed")})); }), 11);
    set(request->Container(), path({text("needed")}), COtxInt(1));
    EXPECT_EQ(pduOf(*request), (Bytes{0x2E, 0x01, 1, 7, 0x55}));
    EXPECT_EQ(kindOf([&] { set(request->Container(), path({text("fixed")}), COtxInt(1)); }), 7);
    const auto defaultOf = [&](const char* name) {
        return request->Container().GetParameterByPath(path({text(name)})).Parameter().GetParameterDefaultValue();
    };
    EXPECT_EQ(defaultOf("defaulted").Int(), 7);
    EXPECT_EQ(defaultOf("fixed").Int(), 0x55);
    EXPECT_EQ(kindOf([&] { defaultOf("needed"); }), 7);
}

TEST(DiagRequestParameters, LieWhereTheDescriptionSays) {
    auto flag = value("flag", 1, Coding::Boolean);
    flag.bytePosition = 3;
    flag.bitPosition = 7;
    auto level = value("level", 4);
    level.bytePosition = 3;
    auto early = value("early", 8);
    early.bytePosition = 2;
    const auto request = makeRequest({flag, level, early, value("next", 8)});
    set(request->Container(), path({text("flag")}), COtxBool(true));
    set(request->Container(), path({text("level")}), COtxInt(5));
    set(request->Container(), path({text("early")}), COtxInt(0x11));
    set(request->Container(), path({text("next")}), COtxInt(0x02));
    // Behind the one before it, so it shares the byte: the last that is written holds.
    EXPECT_EQ(pduOf(*request), (Bytes{0x2E, 0x01, 0x11, 0x02}));
    auto far = value("far", 8);
    far.bytePosition = std::size_t{1} << 40;
    const auto impossible = makeRequest({far});
    set(impossible->Container(), path({text("far")}), COtxInt(1));
    EXPECT_EQ(kindOf([&] { impossible->GetPdu(); }), 7);
}

TEST(DiagRequestParameters, StructuresAndRepetitionsNest) {
    auto count = value("count", 8);
    auto items = complex("items", ParameterKind::Repeated,
                         {value("id", 8), complex("pair", ParameterKind::Structure, {value("a", 8), value("b", 8)})},
                         Extent::Counted);
    items.countedBy = "count";
    const auto request = makeRequest({count, items});
    auto& container = request->Container();
    EXPECT_EQ(pduOf(*request), (Bytes{0x2E, 0x01, 0}));
    for (int i = 0; i < 2; ++i) {
        set(container, path({text("items"), COtxInt(i), text("id")}), COtxInt(i));
        set(container, path({text("items"), COtxInt(i), text("pair"), text("a")}), COtxInt(16 + i));
        set(container, path({text("items"), COtxInt(i), text("pair"), COtxInt(1)}), COtxInt(32 + i));
    }
    EXPECT_EQ(pduOf(*request), (Bytes{0x2E, 0x01, 2, 0, 16, 32, 1, 17, 33}));
    EXPECT_EQ(kindOf([&] { container.GetParameterByPath(path({text("items"), COtxInt(3)})); }), 8);
    EXPECT_EQ(kindOf([&] { container.GetParameterByPath(path({text("items"), text("id")})); }), 8);
    const COtxValue item = container.GetParameterByPath(path({text("items"), COtxInt(1)}));
    EXPECT_EQ(item.Type(), ValueType::Parameter);
    EXPECT_EQ(std::string(item.Parameter().GetParameterName().String()), "items[1]");
    EXPECT_TRUE(item.IsContainer());
    EXPECT_TRUE(item.Parameter().IsComplexParameter().Bool());
    EXPECT_EQ(item.Container().GetParameterAsList().List().size(), 2u);
    // Set by hand, the counter counts what it likes.
    set(container, path({text("count")}), COtxInt(9));
    EXPECT_EQ(pduOf(*request)[2], 9);
}

TEST(DiagRequestParameters, ComplexOnesAreMapsAndLists) {
    const auto request = makeRequest(
        {complex("pair", ParameterKind::Structure, {value("a", 8), value("b", 8)}),
         complex("rest", ParameterKind::Repeated, {value("x", 8)}, Extent::Rest)});
    auto& container = request->Container();
    set(container, path({text("pair")}), COtxMap(std::map<COtxValue, COtxValue>{{text("a"), COtxInt(1)}, {text("b"), COtxInt(2)}}));
    const COtxValue item = COtxMap(std::map<COtxValue, COtxValue>{{text("x"), COtxInt(3)}});
    set(container, path({text("rest")}), COtxList(std::vector<COtxValue>{item, item}));
    EXPECT_EQ(pduOf(*request), (Bytes{0x2E, 0x01, 1, 2, 3, 3}));
    const COtxValue pair = get(container, path({text("pair")}));
    EXPECT_EQ(pair.Map().at(text("b")).Int(), 2);
    EXPECT_EQ(get(container, path({text("rest")})).List().at(1).Map().at(text("x")).Int(), 3);
    EXPECT_EQ(kindOf([&] { get(container, path({text("pair")}), ValueType::Integer); }), 5);
    std::string why;
    EXPECT_EQ(kindOf([&] { set(container, path({text("pair")}), COtxInt(1)); }, &why), 5);
    EXPECT_EQ(why, "parameter 'pair' of 'Request' is complex: expected a Map, not a value of type Integer");
}

TEST(DiagRequestParameters, RepetitionsHaveAnEnd) {
    const auto request = makeRequest({complex("rest", ParameterKind::Repeated, {value("x", 8)}, Extent::Rest)});
    const COtxValue rest = request->Container().GetParameterByPath(path({text("rest")}));
    for (int i = 0; i < 65536; ++i)
        rest.Container().GetParameterByStep(COtxInt(i));
    std::string why;
    EXPECT_EQ(kindOf([&] { rest.Container().GetParameterByStep(COtxInt(65536)); }, &why), 7);
    EXPECT_EQ(why, "parameter 'rest' of 'Request' has 65536 items already, and can't have more");
}

TEST(DiagRequestParameters, TextsAreCountedToo) {
    auto length = value("length", 8);
    length.defaultValue = std::int64_t{99};
    auto name = value("name", 8, Coding::Utf8);
    name.extent = Extent::Counted;
    name.countedBy = "length";
    const auto request = makeRequest({length, name});
    set(request->Container(), path({text("name")}), text("abc"));
    EXPECT_EQ(pduOf(*request), (Bytes{0x2E, 0x01, 3, 'a', 'b', 'c'}));
}

TEST(DiagRequestParameters, APduIsTakenApart) {
    const auto request = makeRequest({value("a", 8), value("b", 16),
                                      complex("rest", ParameterKind::Repeated, {value("x", 8)}, Extent::Rest)});
    auto& container = request->Container();
    const Bytes pdu{0x2E, 0x77, 1, 2, 3, 4, 5};
    request->SetPdu(COtxByteField(pdu));
    EXPECT_EQ(pduOf(*request), pdu);
    EXPECT_EQ(get(container, path({text("b")})).Int(), 0x0203);
    EXPECT_EQ(get(container, path({text("rest"), COtxInt(1), text("x")})).Int(), 5);
    set(container, path({text("a")}), COtxInt(9));
    EXPECT_EQ(pduOf(*request), (Bytes{0x2E, 0x01, 9, 2, 3, 4, 5}));
    // Too short for b.
    request->SetPdu(COtxByteField({0x2E, 0x77, 1}));
    EXPECT_EQ(kindOf([&] { get(container, path({text("b")})); }), 11);
    EXPECT_EQ(kindOf([&] { request->SetPdu(COtxList()); }), 5);
}

TEST(DiagRequestParameters, AnEmptyRequestIsRefused) {
    const auto request = makeRequest({}, {});
    EXPECT_EQ(kindOf([&] { request->GetPdu(); }), 7);
}

TEST(DiagRequestParameters, AnswerWhatTheyAre) {
    const auto request = makeRequest({value("n", 8), value("f", 32, Coding::Float), value("t", 8, Coding::Ascii),
                                      value("e", 8, Coding::TextTable), value("y", 8, Coding::ByteField),
                                      value("b", 1, Coding::Boolean), value("d", 8, Coding::Bcd),
                                      complex("c", ParameterKind::Structure, {value("x", 8)})});
    std::string kinds;
    const COtxValue all = request->Container().GetParameterAsList();
    for (const COtxValue& one : all.List()) {
        auto& parameter = one.Parameter();
        if (parameter.IsNumericParameter().Bool()) kinds += 'n';
        if (parameter.IsStringParameter().Bool()) kinds += 's';
        if (parameter.IsByteFieldParameter().Bool()) kinds += 'y';
        if (parameter.IsBooleanParameter().Bool()) kinds += 'b';
        if (parameter.IsComplexParameter().Bool()) kinds += 'c';
    }
    EXPECT_EQ(kinds, "nnssybnc");
    EXPECT_EQ(kindOf([&] { all.List().front().Container(); }), 5);
}

TEST(DiagRequestParameters, TooDeepIsRefused) {
    auto inner = value("x", 8);
    for (int i = 0; i < 100; ++i)
        inner = complex("c", ParameterKind::Structure, {inner});
    EXPECT_EQ(kindOf([&] { makeRequest({inner}); }), 7);
}

TEST(DiagRequestParameters, OutliveTheirRequest) {
    COtxValue parameter;
    {
        const auto request = makeRequest({value("a", 8)});
        parameter = request->Container().GetParameterByPath(path({text("a")}));
    }
    parameter.Parameter().SetParameterValue(COtxInt(5));
    EXPECT_EQ(parameter.Parameter().GetParameterValue(ValueType::Integer).Int(), 5);
}

TEST(DiagResponseParameters, AreReadByPath) {
    const auto reply = makeReply({value("a", 8), complex("pair", ParameterKind::Structure, {value("x", 8), value("y", 16)})},
                                 {0x6E, 0x01, 7, 1, 2, 3});
    EXPECT_EQ(get(reply->Container(), path({text("a")}), ValueType::Integer).Int(), 7);
    EXPECT_EQ(get(reply->Container(), path({text("pair"), text("y")})).Int(), 0x0203);
    EXPECT_EQ(kindOf([&] { set(reply->Container(), path({text("a")}), COtxInt(1)); }), 7);
    EXPECT_EQ(kindOf([&] {
        reply->Container().GetParameterByPath(path({text("a")})).Parameter().GetParameterDefaultValue();
    }), 7);
    EXPECT_EQ(reply->state(), COtxResponseState::Positive);
    EXPECT_TRUE(reply->IsPositive());
    EXPECT_EQ(reply->GetResponseTimestamp().Int(), 5000);
    EXPECT_EQ(std::string(reply->GetComChannelIdentifier().String()), "Engine");
    EXPECT_EQ(std::string(reply->GetResponseName().String()), "Reply");
    EXPECT_EQ(reply->GetResponseState().Int(), COtxResponseState::Positive);
}

TEST(DiagResponseParameters, ATooShortResponseFailsAtTheParameter) {
    const auto reply = makeReply({value("a", 8), value("b", 16)}, {0x6E, 0x01, 7, 1});
    EXPECT_EQ(reply->state(), COtxResponseState::Positive);
    EXPECT_EQ(get(reply->Container(), path({text("a")})).Int(), 7);
    const COtxValue b = reply->Container().GetParameterByPath(path({text("b")}));
    std::string why;
    EXPECT_EQ(kindOf([&] { b.Parameter().GetParameterValue(ValueType::Integer); }, &why), 7);
    EXPECT_EQ(why, "parameter 'b' of 'Reply' needs 2 bytes from byte 3 on, but the response ends after 4: 6E 01 07 01");
}

TEST(DiagResponseParameters, RepetitionsGoAsFarAsTheBytes) {
    const std::vector<ParameterDescription> fields{value("code", 24), value("status", 8)};
    const auto codes = makeReply({complex("codes", ParameterKind::Repeated, fields, Extent::Rest)},
                                 {0x6E, 0x01, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    const COtxValue list = codes->Container().GetParameterByPath(path({text("codes")}));
    ASSERT_EQ(list.Container().GetParameterAsList().List().size(), 3u);
    EXPECT_EQ(get(codes->Container(), path({text("codes"), COtxInt(1), text("code")})).Int(), 0x050607);
    EXPECT_EQ(kindOf([&] { get(codes->Container(), path({text("codes"), COtxInt(2), text("code")})); }), 7);
    EXPECT_EQ(kindOf([&] { get(codes->Container(), path({text("codes"), COtxInt(3), text("code")})); }), 8);

    auto counted = complex("items", ParameterKind::Repeated, {value("x", 8)}, Extent::Counted);
    counted.countedBy = "count";
    const auto some = makeReply({value("count", 8), counted, value("tail", 8)}, {0x6E, 0x01, 2, 10, 11, 12});
    EXPECT_EQ(get(some->Container(), path({text("items"), COtxInt(1), text("x")})).Int(), 11);
    EXPECT_EQ(get(some->Container(), path({text("tail")})).Int(), 12);
    const auto broken = makeReply({value("count", 8), counted}, {0x6E, 0x01, 200, 10});
    std::string why;
    EXPECT_EQ(kindOf([&] { get(broken->Container(), path({text("items"), COtxInt(150)})); }, &why), 7);
    EXPECT_NE(why.find("should have 200 items"), std::string::npos) << why;
    EXPECT_EQ(kindOf([&] { get(broken->Container(), path({text("items"), COtxInt(200)})); }), 8);
}

TEST(DiagResponseParameters, CountersMayStandFurtherOutAndCountBytes) {
    auto inner = value("text", 8, Coding::Ascii);
    inner.extent = Extent::Counted;
    inner.countedBy = "length";
    const auto reply = makeReply({value("length", 8), complex("inner", ParameterKind::Structure, {inner}), value("t", 8)},
                                 {0x6E, 0x01, 2, 'h', 'i', 9});
    EXPECT_EQ(std::string(get(reply->Container(), path({text("inner"), text("text")})).String()), "hi");
    EXPECT_EQ(get(reply->Container(), path({text("t")})).Int(), 9);
    const auto broken = makeReply({value("length", 8), complex("inner", ParameterKind::Structure, {inner})},
                                  {0x6E, 0x01, 200, 'h'});
    EXPECT_EQ(kindOf([&] { get(broken->Container(), path({text("inner"), text("text")})); }), 7);
}

TEST(DiagResponseParameters, ItemsWithoutLengthEnd) {
    auto nothing = value("none", 8, Coding::ByteField);
    nothing.extent = Extent::Counted;
    nothing.countedBy = "count";
    auto items = complex("items", ParameterKind::Repeated, {nothing}, Extent::Rest);
    EXPECT_NO_THROW(makeReply({value("count", 8), items}, {0x6E, 0x01, 0, 1, 2, 3}));
}

TEST(DiagResponses, AreFoundByPrefixAndConstants) {
    auto fixed = value("kind", 8, Coding::Signed);
    fixed.constant = std::int64_t{-2};
    auto service = std::make_shared<ServiceDescription>();
    service->name = "Service";
    service->positive.push_back({"Special", {0x62}, {fixed}});
    service->positive.push_back({"Common", {0x62}, {}});
    service->negative.push_back({"Busy", {0x7F, 0x22, 0x21}, {}});
    service->negative.push_back({"Other", {0x7F}, {value("service", 8), value("code", 8)}});
    const auto name = [&](Bytes bytes) {
        return std::string(makeResponse(service, {"Engine", std::move(bytes), 0ms})->GetResponseName().String());
    };
    EXPECT_EQ(name({0x62, 0xFE}), "Special");
    EXPECT_EQ(name({0x62, 0xFD}), "Common");
    // As far as the bytes go, it could be.
    EXPECT_EQ(name({0x62}), "Special");
    EXPECT_EQ(name({0x7F, 0x22, 0x21}), "Busy");
    EXPECT_EQ(name({0x7F, 0x22, 0x31}), "Other");
    const auto negative = makeResponse(service, {"Engine", {0x7F, 0x22, 0x31}, 0ms});
    EXPECT_EQ(negative->state(), COtxResponseState::Negative);
    EXPECT_FALSE(negative->IsPositive());
    EXPECT_EQ(get(negative->Container(), path({text("code")})).Int(), 0x31);
}

TEST(DiagResponses, ThatFitNothingAreInvalid) {
    const auto reply = makeReply({value("a", 8)}, {0x6E, 0x02, 1});
    EXPECT_EQ(reply->state(), COtxResponseState::Invalid);
    EXPECT_FALSE(reply->IsPositive());
    EXPECT_EQ(std::string(reply->GetResponseName().String()), "Reply");
    std::string why;
    EXPECT_EQ(kindOf([&] { get(reply->Container(), path({text("a")})); }, &why), 7);
    EXPECT_NE(why.find("the response fits no description of 'Service': 6E 02 01"), std::string::npos) << why;
    const COtxValue pdu = reply->GetPdu();
    EXPECT_EQ(pdu.ByteField().size(), 3u);
}

TEST(DiagResponses, WithoutADescriptionHaveTheirBytes) {
    const auto raw = makeRawResponse({"Engine", {0x62, 1}, 0ms});
    EXPECT_EQ(raw->state(), COtxResponseState::Positive);
    EXPECT_TRUE(raw->Container().GetParameterAsList().List().empty());
    EXPECT_EQ(makeRawResponse({"Engine", {0x7F, 0x22, 0x31}, 0ms})->state(), COtxResponseState::Negative);
}

}  // namespace
}  // namespace velkotx::host
