// The rules of the scripted host: their form, and which one answers.
#include "program/Inputs.h"
#include "program/UsageError.h"
#include "program/script/AnswerMatcher.h"
#include "program/script/AnswerRules.h"

#include <otx/value/Functions.h>

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace velkotx::host;

std::vector<AnswerRule> rules(const std::string& json) {
    std::istringstream stream(json);
    Inputs inputs(stream);
    return readAnswers(inputs, "-");
}

std::string complaint(const std::string& json) {
    try {
        rules(json);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "none";
}

// The word of the first command that the rule for a message sends.
std::string answer(AnswerMatcher& matcher, const std::string& eventType, const std::optional<std::string>& screen = {}) {
    const AnswerRule* rule = matcher.fire(eventType, screen);
    return rule != nullptr ? std::get<ControlCommand>(rule->send.at(0)).word : "none";
}

TEST(AnswerRules, ReadsEveryMember) {
    const auto read = rules(R"([{"on":"HMI-OpenScreen","screen":"Confirm","times":3,"delayMs":20,
        "send":[{"control":"cancel","params":{"flowId":1}},{"eventType":"HMI-CloseScreen","screenName":"Confirm"}]}])");
    ASSERT_EQ(read.size(), 1U);
    EXPECT_EQ(read[0].on, "HMI-OpenScreen");
    EXPECT_EQ(read[0].screen, "Confirm");
    EXPECT_EQ(read[0].times, 3);
    EXPECT_EQ(read[0].delay, std::chrono::milliseconds(20));
    ASSERT_EQ(read[0].send.size(), 2U);
    const auto& control = std::get<ControlCommand>(read[0].send[0]);
    EXPECT_EQ(control.word, "cancel");
    EXPECT_EQ(OTX::GetParameter(control.parameters, "flowId", OTX::ValueType::Integer).Int(), 1);
    const auto& event = std::get<Event>(read[0].send[1]);
    const std::string screen = OTX::GetParameter(event.value, "screenName", OTX::ValueType::String).String();
    EXPECT_EQ(screen, "Confirm");
}

TEST(AnswerRules, HasDefaults) {
    const auto read = rules(R"([{"on":"FlowStopped","send":[{"control":"run"}]}])");
    EXPECT_FALSE(read.at(0).screen);
    EXPECT_EQ(read[0].times, 1);
    EXPECT_EQ(read[0].delay.count(), 0);
    EXPECT_TRUE(std::get<ControlCommand>(read[0].send.at(0)).parameters.Map().empty());
}

TEST(AnswerRules, RefusesWhatIsNoArrayOfRules) {
    EXPECT_EQ(complaint("{}"), "<stdin>: a JSON array of rules was expected");
    EXPECT_EQ(complaint("[7]"), "<stdin>: rule 1: a JSON object was expected");
}

TEST(AnswerRules, NamesTheRuleAndTheKey) {
    const std::string good = R"({"on":"a","send":[]},)";
    const auto second = [&](const std::string& rule) { return complaint("[" + good + rule + "]"); };
    EXPECT_EQ(second(R"({"on":"a","send":[],"delay":3})"), "<stdin>: rule 2: unknown key 'delay'");
    EXPECT_EQ(second(R"({"send":[]})"), "<stdin>: rule 2: 'on' is missing");
    EXPECT_EQ(second(R"({"on":"","send":[]})"), "<stdin>: rule 2: 'on' is empty");
    EXPECT_EQ(second(R"({"on":1,"send":[]})"), "<stdin>: rule 2: 'on' has to be a string");
    EXPECT_EQ(second(R"({"on":"a","screen":1,"send":[]})"), "<stdin>: rule 2: 'screen' has to be a string");
    EXPECT_EQ(second(R"({"on":"a","times":1.5,"send":[]})"),
              "<stdin>: rule 2: 'times' has to be an integer from 0 to 9223372036854775807");
    EXPECT_EQ(second(R"({"on":"a","delayMs":-1,"send":[]})"),
              "<stdin>: rule 2: 'delayMs' has to be an integer from 0 to 86400000");
    EXPECT_EQ(second(R"({"on":"a","delayMs":86400001,"send":[]})"),
              "<stdin>: rule 2: 'delayMs' has to be an integer from 0 to 86400000");
    EXPECT_EQ(second(R"({"on":"a"})"), "<stdin>: rule 2: 'send' is missing");
    EXPECT_EQ(second(R"({"on":"a","send":{}})"), "<stdin>: rule 2: 'send' has to be an array");
}

TEST(AnswerRules, NamesTheEntryOfSend) {
    const auto send = [](const std::string& entry) {
        return complaint(R"([{"on":"a","send":[{"control":"run"},)" + entry + "]}]");
    };
    EXPECT_EQ(send("1"), "<stdin>: rule 1: 'send', entry 2: a JSON object was expected");
    EXPECT_EQ(send("{}"), "<stdin>: rule 1: 'send', entry 2: neither 'control' nor 'eventType' is there");
    EXPECT_EQ(send(R"({"eventType":1})"), "<stdin>: rule 1: 'send', entry 2: 'eventType' has to be a string");
    EXPECT_EQ(send(R"({"control":1})"), "<stdin>: rule 1: 'send', entry 2: 'control' has to be a string");
    EXPECT_EQ(send(R"({"control":"run","params":[]})"),
              "<stdin>: rule 1: 'send', entry 2: 'params' has to be an object");
    EXPECT_EQ(send(R"({"control":"run","flowId":1})"), "<stdin>: rule 1: 'send', entry 2: unknown key 'flowId'");
}

TEST(AnswerMatcher, TakesTheFirstThatFits) {
    AnswerMatcher matcher(rules(R"([{"on":"a","send":[{"control":"1"}]},{"on":"b","send":[{"control":"2"}]},
                                    {"on":"b","send":[{"control":"3"}]}])"));
    EXPECT_EQ(answer(matcher, "b"), "2");
    EXPECT_EQ(answer(matcher, "b"), "3");
    EXPECT_EQ(answer(matcher, "b"), "none");
    EXPECT_EQ(answer(matcher, "c"), "none");
    EXPECT_EQ(answer(matcher, "a"), "1");
}

TEST(AnswerMatcher, HeedsTheScreenWhereTheRuleNamesOne) {
    AnswerMatcher matcher(rules(R"([{"on":"open","screen":"A","times":0,"send":[{"control":"A"}]},
                                    {"on":"open","times":0,"send":[{"control":"any"}]}])"));
    EXPECT_EQ(answer(matcher, "open", "A"), "A");
    EXPECT_EQ(answer(matcher, "open", "B"), "any");
    EXPECT_EQ(answer(matcher, "open"), "any");
}

TEST(AnswerMatcher, FiresAsOftenAsTheRuleSays) {
    AnswerMatcher matcher(rules(R"([{"on":"a","times":2,"send":[{"control":"1"}]},
                                    {"on":"a","times":0,"send":[{"control":"2"}]}])"));
    EXPECT_EQ(answer(matcher, "a"), "1");
    EXPECT_EQ(answer(matcher, "a"), "1");
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(answer(matcher, "a"), "2");
}

TEST(AnswerMatcher, KnowsWhetherARuleIsLeftThatResumes) {
    for (const char* word : {"run", "step", "cancel"}) {
        AnswerMatcher matcher(rules(R"([{"on":"a","send":[{"control":"status"},{"control":")" + std::string(word) +
                                    R"("}]}])"));
        EXPECT_TRUE(matcher.canResume()) << word;
        matcher.fire("a", {});
        EXPECT_FALSE(matcher.canResume()) << word;
    }
    EXPECT_FALSE(AnswerMatcher(rules(R"([{"on":"a","times":0,"send":[{"control":"status"}]}])")).canResume());
    EXPECT_FALSE(AnswerMatcher(rules(R"([{"on":"start","times":0,"send":[{"control":"run"}]}])")).canResume());
}

TEST(AnswerMatcher, KnowsWhetherARuleIsLeftThatCloses) {
    const std::string closing = R"("send":[{"eventType":"HMI-ScreenClosed","screenName":"A"}]}])";
    for (const std::string& rule : {R"([{"on":"HMI-HighlightScreen",)" + closing,
                                    R"([{"on":"HMI-OpenScreen","screen":"B",)" + closing,
                                    std::string(R"([{"on":"FlowStopped","send":[{"control":"cancel"}]}])")})
        EXPECT_TRUE(AnswerMatcher(rules(rule)).canClose("A")) << rule;
    for (const std::string& rule : {R"([{"on":"HMI-OpenScreen","screen":"A",)" + closing,
                                    R"([{"on":"HMI-OpenScreen",)" + closing, R"([{"on":"start",)" + closing,
                                    std::string(R"([{"on":"FlowStopped","send":[{"control":"run"}]}])")})
        EXPECT_FALSE(AnswerMatcher(rules(rule)).canClose("A")) << rule;
    EXPECT_FALSE(AnswerMatcher(rules(R"([{"on":"FlowStopped",)" + closing)).canClose("B"));
}

TEST(AnswerMatcher, AnAnswerUnderWayMayClose) {
    AnswerMatcher matcher(rules(R"([{"on":"a","send":[]}])"));
    EXPECT_FALSE(matcher.someAreUnderWay());
    matcher.fire("b", {});
    EXPECT_FALSE(matcher.canClose("A"));
    matcher.fire("a", {});
    EXPECT_TRUE(matcher.canClose("A"));
    EXPECT_TRUE(matcher.someAreUnderWay());
    matcher.sent();
    EXPECT_FALSE(matcher.canClose("A"));
    EXPECT_FALSE(matcher.someAreUnderWay());
}

}  // namespace
