// Arguments as a provider reads and writes them.
#include <otx/event/COtxMonitorChangeEventSource.h>
#include <otx/event/IEvent.h>
#include <otx/provider/ProviderArguments.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxString.h>

#include <gtest/gtest.h>

#include "Thrown.h"

namespace {

using namespace ExternalServiceProvider;
using OTX::Exceptions_e;
using OTX::ValueType;

TEST(Arguments, AreReadByNameAndType) {
    const ProviderArguments in({{"n", COtxInt(3)}}, Exceptions_e::ExecuteException);
    EXPECT_EQ(in.Required("n", ValueType::Integer).Int(), 3);
    EXPECT_EQ(in.Required("n", ValueType::Empty).Int(), 3);
    EXPECT_EQ(in.Optional("n", ValueType::Integer, COtxInt(9)).Int(), 3);
    EXPECT_EQ(in.Optional("m", ValueType::Integer, COtxInt(9)).Int(), 9);
    EXPECT_EQ(thrownBy([&] { in.Required("m", ValueType::Integer); }), "25: Argument 'm' is missing");
    EXPECT_EQ(thrownBy([&] { in.Required("n", ValueType::String); }), "25: Argument 'n' is of type Integer, String is needed");
    EXPECT_EQ(thrownBy([&] { in.Optional("n", ValueType::String, COtxString()); }),
              "25: Argument 'n' is of type Integer, String is needed");
}

TEST(Arguments, HaveTheKindOfTheirUse) {
    const ProviderArguments in({{"n", COtxInt(3)}}, Exceptions_e::ProviderException);
    EXPECT_EQ(thrownBy([&] { in.Required("m", ValueType::Integer); }), "21: Argument 'm' is missing");
    EXPECT_EQ(thrownBy([&] { in.AllowOnly({"a", "b"}); }), "21: Argument 'n' is unknown");
    EXPECT_EQ(thrownBy([&] { in.AllowOnly({"a", "n"}); }), "nothing thrown");
}

TEST(Arguments, AreCopies) {
    const COtxList list{std::vector<COtxValue>{COtxInt(1)}};
    const ProviderArguments in({{"l", list}}, Exceptions_e::ExecuteException);
    list.List().push_back(COtxInt(2));
    EXPECT_EQ(in.Required("l", ValueType::List).List().size(), 1U);
}

TEST(Variables, AreWrittenWhereTheSequencePassedThem) {
    const auto inout = std::make_shared<OtxVariable>(COtxInt(1));
    const auto out = std::make_shared<OtxVariable>(COtxInt(2));
    const COtxMonitorChangeEventSource changes;
    out->AddEventSource("out", changes);
    const ProviderVariables variables({{"a", inout}}, {{"b", out}});
    EXPECT_EQ(variables.Read("a", ValueType::Integer).Int(), 1);
    variables.Write("a", COtxInt(11));
    variables.Write("b", COtxInt(12));
    variables.Write("c", COtxInt(13));
    EXPECT_EQ(inout->Value().Int(), 11);
    EXPECT_EQ(out->Value().Int(), 12);
    COtxValue event;
    ASSERT_TRUE(changes.EventSource().Wait(event));
    EXPECT_EQ(event.Event().Value().Int(), 12) << "a write is one like any other";
}

TEST(Variables, AreCheckedByNameAndType) {
    const auto cell = std::make_shared<OtxVariable>(COtxInt(1));
    const ProviderVariables variables({{"a", cell}}, {{"b", cell}});
    EXPECT_EQ(thrownBy([&] { variables.Read("b", ValueType::Integer); }), "25: Argument 'b' is missing");
    EXPECT_EQ(thrownBy([&] { variables.Read("a", ValueType::String); }),
              "25: Argument 'a' is of type Integer, String is needed");
    EXPECT_EQ(thrownBy([&] { variables.AllowOnly({"a"}); }), "25: Argument 'b' is unknown");
    EXPECT_EQ(thrownBy([&] { variables.AllowOnly({"b"}); }), "25: Argument 'a' is unknown");
    EXPECT_EQ(thrownBy([&] { variables.AllowOnly({"a", "b"}); }), "nothing thrown");
}

}  // namespace
