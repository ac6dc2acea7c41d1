// Integer-backed enumerations, and the elements of enumerations that documents declare.
#include "Thrown.h"

namespace {

using tests::outOfBounds;
using tests::typeMismatch;

// As a module outside the library makes one: it passes its type and overrides ToString alone.
class AudienceBehaviour : public COtxIntBehaviour {
public:
    AudienceBehaviour(long long number, std::string token)
        : COtxIntBehaviour(number, COtxInt::Decimal, OTX::ValueType::Audience), token_(std::move(token)) {}
    COtxValue ToString() override { return COtxString(token_); }

private:
    std::string token_;
};

COtxValue audience() { return COtxValue(std::make_shared<AudienceBehaviour>(1, "DEVELOPMENT")); }

// Makes each number of an enumeration and compares its text.
template <class Make>
void checkLiterals(Make make, OTX::ValueType type, const std::vector<std::string>& literals) {
    for (std::size_t place = 0; place < literals.size(); ++place) {
        const COtxValue value = make(static_cast<int>(place));
        EXPECT_EQ(value.Type(), type);
        EXPECT_EQ(value.Int(), static_cast<long long>(place));
        EXPECT_EQ(value.ToString().String(), literals[place]);
    }
    EXPECT_EQ(OTX_THROWN_KIND(make(static_cast<int>(literals.size()))), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(make(-1)), outOfBounds);
}

}  // namespace

TEST(Enumeration, ASubclassOfTheIntegerAnswersItsNameAndItsNumber) {
    const COtxValue value = audience();
    EXPECT_EQ(static_cast<int>(value.Type()), 29);
    EXPECT_EQ(value.stringType(), "Audience");
    EXPECT_EQ(value.ToString().String(), "DEVELOPMENT");
    EXPECT_EQ(value.Int(), 1);
    EXPECT_TRUE(value.GetBehaviourReference()->IsInt());
    EXPECT_STREQ(value.what(), "DEVELOPMENT");
    EXPECT_EQ(tests::streamed(value), "DEVELOPMENT");
}

TEST(Enumeration, ASubclassOfTheIntegerStaysAnInteger) {
    const COtxValue value = audience();
    EXPECT_TRUE(value == COtxInt(1));
    EXPECT_TRUE(COtxInt(1) == value);
    EXPECT_TRUE(value < COtxFloat(1.5));
    EXPECT_TRUE(COtxFloat(0.5) < value);
    EXPECT_EQ((value + COtxInt(1)).Int(), 2);
    EXPECT_EQ((COtxInt(1) + value).Int(), 2);
    EXPECT_EQ((COtxFloat(0.5) + value).Float(), 1.5);
    EXPECT_EQ(value.ToInteger().Type(), OTX::ValueType::Integer);
    EXPECT_TRUE(value.ToBoolean().Bool());
}

TEST(Enumeration, ASubclassOfTheIntegerHasItsNameInJson) {
    EXPECT_EQ(tests::json(audience()), R"("DEVELOPMENT")");
    EXPECT_EQ(tests::otxJson(audience()), R"({"Audience":"DEVELOPMENT"})");
    const COtxValue flagged = audience();
    flagged.SetOTXJSON(true);
    EXPECT_EQ(tests::json(flagged), R"({"Audience":"DEVELOPMENT"})");
    EXPECT_EQ(std::string(flagged.GetBehaviourReference()->ToJSONObject().Map().begin()->first.String()), "Audience");
}

TEST(Enumeration, ACopyOfASubclassIsIndependent) {
    const COtxValue original = audience();
    const COtxValue copy = OTX::DeepCopy(original);
    copy.SetOTXJSON(true);
    EXPECT_EQ(tests::json(original), R"("DEVELOPMENT")");
    EXPECT_EQ(copy.Type(), original.Type());
    EXPECT_EQ(copy.ToString().String(), "DEVELOPMENT");
    EXPECT_TRUE(copy == original);
}

TEST(Enumeration, BehaviourReferenceIsTheVeryObject) {
    const auto behaviour = std::make_shared<AudienceBehaviour>(1, "DEVELOPMENT");
    const COtxValue value{behaviour};
    EXPECT_EQ(value.GetBehaviourReference(), behaviour);
    EXPECT_EQ(value.GetBehaviourReference()->shared_from_this(), behaviour);
}

TEST(Enumeration, EachTypeHasItsLiteralsInOrder) {
    using OTX::ValueType;
    checkLiterals([](int number) { return COtxResultState(static_cast<COtxResultState::ResultState>(number)); },
                  ValueType::ResultState,
                  {"ALL_FAILED", "ALL_INVALID", "ALL_NEGATIVE", "ALL_POSITIVE", "FAILED", "INVALID", "NEGATIVE",
                   "POSITIVE"});
    checkLiterals([](int number) { return COtxResponseState(static_cast<COtxResponseState::ResponseState>(number)); },
                  ValueType::ResponseState, {"FAILED", "INVALID", "NEGATIVE", "POSITIVE"});
    checkLiterals(
        [](int number) { return COtxComChannelState(static_cast<COtxComChannelState::ComChannelState>(number)); },
        ValueType::ComChannelState, {"COMMUNICATION", "ONLINE", "OFFLINE", "CREATED"});
    checkLiterals([](int number) { return COtxMessageType(static_cast<COtxMessageType::MessageType>(number)); },
                  ValueType::MessageType, {"INFO", "WARNING", "ERROR", "YESNO_QUESTION", "YESNOCANCEL_QUESTION"});
    checkLiterals(
        [](int number) { return COtxConfirmationType(static_cast<COtxConfirmationType::ConfirmationType>(number)); },
        ValueType::ConfirmationType, {"YES", "NO", "CANCEL"});
    checkLiterals([](int number) { return COtxLogLevel(static_cast<COtxLogLevel::LogLevel>(number)); },
                  ValueType::LogLevel, {"ALL", "TRACE", "DEBUG", "INFO", "WARN", "ERROR", "FATAL", "OFF"});
}

TEST(EnumerationItem, AnswersNameAndValue) {
    const COtxEnumerationItem item(COtxString("Colour"), COtxString("RED"), COtxInt(3));
    EXPECT_EQ(item.Type(), OTX::ValueType::EnumerationItem);
    EXPECT_EQ(item.ToString().String(), "RED");
    EXPECT_EQ(item.ToInteger().Int(), 3);
    EXPECT_EQ(item.Int(), 3);
    EXPECT_EQ(item.ToFloat().Float(), 3.0);
    EXPECT_TRUE(item.ToBoolean().Bool());
    EXPECT_EQ(item.ToByteField().ToString().String(), "0000000000000003");
    EXPECT_STREQ(item.what(), "RED");
    EXPECT_FALSE(item == COtxInt(3));
    EXPECT_EQ(OTX_THROWN_KIND(COtxEnumerationItem(COtxInt(1), COtxString("n"), COtxInt(1))), typeMismatch);
}

TEST(EnumerationItem, ACopyIsIndependent) {
    const COtxValue content = COtxList();
    const COtxValue copy = OTX::DeepCopy(COtxEnumerationItem(COtxString("T"), COtxString("n"), content));
    content.List().push_back(COtxInt(1));
    EXPECT_TRUE(copy == COtxEnumerationItem(COtxString("T"), COtxString("n"), COtxList()));
}
