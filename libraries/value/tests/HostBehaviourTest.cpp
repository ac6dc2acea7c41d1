// Behaviours that hosts write: what they inherit, and what the library makes of them.
#include <otx/diag/IDiagService.h>
#include <otx/diag/IMessage.h>
#include <otx/diag/IParameterContainer.h>
#include <otx/value/IQuantity.h>

#include "Thrown.h"

namespace {

using OTX::ValueType;
using tests::typeMismatch;

class BareBehaviour : public COtxValueBehaviour {
public:
    explicit BareBehaviour(ValueType type = ValueType::FlashSession) : COtxValueBehaviour(type) {}
};

class NamedService : public COtxValueBehaviour {
public:
    NamedService() : COtxValueBehaviour(ValueType::DiagService) {}
    COtxValue ToString() override { return COtxString("ReadDtc"); }
};

// A request answers its parameters and its bytes.
class SimulatedRequest : public COtxValueBehaviour, public OTX::IMessage, public OTX::IParameterContainer {
public:
    SimulatedRequest() : COtxValueBehaviour(ValueType::Request) {}
    bool IsContainer() const override { return true; }
    OTX::IMessage& IMessage() override { return *this; }
    OTX::IParameterContainer& Container() override { return *this; }

    COtxValue GetPdu() override { return COtxByteField(std::vector<unsigned char>{0x22}); }
    void SetParameterValueBySemantic(const COtxValue&, const COtxValue&) override {}
    COtxValue GetParameterBySemantic(const COtxValue&) override { return {}; }
    COtxValue GetParameterByPath(const COtxValue& path) override { return path; }
    COtxValue GetParameterByStep(const COtxValue& step) override { return step; }
    COtxValue GetParameterAsList() override { return COtxList(); }
};

// Answers JSON that is none.
class BadJson : public COtxValueBehaviour {
public:
    BadJson() : COtxValueBehaviour(ValueType::Result) {}
    COtxValue ToJSONObject(Value2IdMap&) override { return COtxByteField(); }
};

// Not the library's own Integer, though of its type.
class CountingInteger : public COtxIntBehaviour {
public:
    CountingInteger() : COtxIntBehaviour(5, COtxInt::Decimal, ValueType::Integer) {}
    long long Int() const override { return 6; }
};

COtxValue bare() { return COtxValue(std::make_shared<BareBehaviour>()); }

}  // namespace

TEST(HostBehaviour, RefusesEverythingThatIsNotOverridden) {
    const COtxValue value = bare();
    const COtxInt one(1);
    const std::string end = " is not supported by type FlashSession";
    EXPECT_EQ(OTX_THROWN_TEXT(value + one), "Operation Add is not supported by types FlashSession and Integer");
    EXPECT_EQ(OTX_THROWN_KIND(value - one), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(value * one), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(value / one), typeMismatch);
    EXPECT_EQ(OTX_THROWN_KIND(value % one), typeMismatch);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Abs()), "Operation Abs" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ToBoolean()), "Operation ToBoolean" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ToInteger()), "Operation ToInteger" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ToString()), "Operation ToString" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ToFloat()), "Operation ToFloat" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ToByteField()), "Operation ToByteField" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ToQuantity()), "Operation ToQuantity" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.GetBehaviourReference()->ToHexBinaryString()), "Operation ToHexBinaryString" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Bool()), "Operation Bool" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Int()), "Operation Int" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Float()), "Operation Float" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Precision()), "Operation Precision" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.String()), "Operation String" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Message()), "Operation Message" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Result()), "Operation Result" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Response()), "Operation Response" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Parameter()), "Operation Parameter" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Exception()), "Operation Exception" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.EventSource()), "Operation EventSource" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Event()), "Operation Event" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.List()), "Operation List" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Map()), "Operation Map" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ByteField()), "Operation ByteField" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Quantity()), "Operation Quantity" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Unit()), "Operation Unit" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Request()), "Operation Request" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.Container()), "Operation Container" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ComChannel()), "Operation ComChannel" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.DiagService()), "Operation DiagService" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ServiceProviderService()), "Operation ServiceProviderService" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ServiceProvider()), "Operation ServiceProvider" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.FlashSession()), "Operation FlashSession" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ComInterface()), "Operation ComInterface" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.FileHandle()), "Operation FileHandle" + end);
    EXPECT_EQ(OTX_THROWN_TEXT(value.FileReadHandle()), "Operation FileReadHandle" + end);
    EXPECT_FALSE(value.IsContainer());
    EXPECT_FALSE(value.GetBehaviourReference()->IsInt());
}

TEST(HostBehaviour, ComparesByIdentityAndCanBeAKey) {
    const COtxValue first = bare();
    const COtxValue copy = first;
    const COtxValue second = bare();
    EXPECT_TRUE(first == copy);
    EXPECT_TRUE(first != second);
    EXPECT_NE(first < second, second < first);
    EXPECT_FALSE(first < copy);
    EXPECT_TRUE(first <= copy && first >= copy);
    EXPECT_FALSE(first > copy);
    EXPECT_TRUE(COtxMap() < first);
    EXPECT_TRUE(first < COtxValue(std::make_shared<BareBehaviour>(ValueType::ComInterface)));
    EXPECT_FALSE(first == COtxValue());
    std::map<COtxValue, COtxValue> map{{first, COtxInt(1)}, {second, COtxInt(2)}};
    EXPECT_EQ(map.at(copy).Int(), 1);
}

TEST(HostBehaviour, StreamAndJsonShowWhatThereIs) {
    EXPECT_EQ(tests::streamed(bare()), "<FlashSession>");
    EXPECT_EQ(tests::json(bare()), R"("FlashSession")");
    EXPECT_STREQ(bare().what(), "FlashSession");
    const COtxValue service(std::make_shared<NamedService>());
    EXPECT_EQ(tests::streamed(service), "ReadDtc");
    EXPECT_EQ(tests::json(service), R"("ReadDtc")");
    service.SetOTXJSON(true);
    EXPECT_EQ(tests::json(service), R"({"DiagService":"ReadDtc"})");
    EXPECT_EQ(tests::json(COtxList(std::vector<COtxValue>{service})), R"([{"DiagService":"ReadDtc"}])");
}

TEST(HostBehaviour, JsonOfAHandleReadsAsAMap) {
    const COtxValue read = OTX::FromJSON(R"({"DiagService":"ReadDtc"})");
    EXPECT_EQ(read.Type(), ValueType::Map);
}

TEST(HostBehaviour, JsonThatIsNoneIsRefused) {
    const COtxValue value(std::make_shared<BadJson>());
    EXPECT_EQ(OTX_THROWN_KIND(value.ToJSON()), typeMismatch);
    EXPECT_EQ(tests::streamed(COtxList(std::vector<COtxValue>{value})), "<List>");
}

TEST(HostBehaviour, DeepCopySharesTheHandle) {
    const COtxValue service(std::make_shared<NamedService>());
    const COtxValue copy = OTX::DeepCopy(COtxList(std::vector<COtxValue>{service}));
    EXPECT_EQ(copy.List()[0].GetBehaviourReference(), service.GetBehaviourReference());
}

TEST(HostBehaviour, AnswersSeveralInterfaces) {
    const COtxValue request(std::make_shared<SimulatedRequest>());
    EXPECT_TRUE(request.IsContainer());
    EXPECT_EQ(request.Message().GetPdu().ToString().String(), "22");
    EXPECT_EQ(request.Container().GetParameterByStep(COtxInt(3)).Int(), 3);
}

TEST(HostBehaviour, AnIntegerOfAnotherMakeIsAsked) {
    const COtxValue value(std::make_shared<CountingInteger>());
    EXPECT_EQ(value.Int(), 6);
    EXPECT_TRUE(value == COtxInt(6));
    EXPECT_TRUE(COtxInt(6) == value);
    EXPECT_EQ((value + COtxInt(1)).Int(), 7);
    EXPECT_EQ((COtxInt(1) + value).Int(), 7);
    EXPECT_EQ(tests::json(value), "6");
}
