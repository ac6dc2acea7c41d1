// The script comes first: what the operator hears of screens that it may see to.
#include "FakeSequencer.h"
#include "OperatorFakes.h"
#include "objects/SilentEventSink.h"
#include "operator/Attendant.h"
#include "operator/Operator.h"
#include "operator/Unattended.h"
#include "program/Inputs.h"
#include "program/script/InterruptibleLines.h"
#include "program/script/ScriptedHost.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

namespace {

using namespace velkotx::host;

constexpr const char* opened =
    R"({"eventType":"HMI-OpenScreen","screenName":"InputDialog","modal":true,"parameters":{"initialValue":"x"}})";

// A scripted host with nobody behind it who takes defaults.
class OperatorScript : public testing::Test {
protected:
    OperatorScript() {
        sequencer_.sendEvent = [this](const COtxValue& event) { scripted_.sendEvent(event); };
        sequencer_.control = [this](const std::string& word) {
            scripted_.sendEvent(OTX::FromJSON('"' + word + '"'));
            return COtxValue();
        };
        operator_ = std::make_shared<Operator>(
            std::make_unique<Unattended>(WithoutOperator::defaults, unattended_, err_), std::make_unique<MemoryInput>(),
            nullptr);
        operator_->start();
    }

    void begin(const std::string& rules, const std::string& control = {}) {
        std::istringstream stream(rules);
        Inputs inputs(stream);
        if (!control.empty()) {
            const auto file = std::filesystem::temp_directory_path() / ("lines-" + std::to_string(getpid()));
            std::ofstream(file) << control;
            lines_.emplace(inputs, file);
            std::filesystem::remove(file);
        }
        host_ = std::make_shared<ScriptedHost>(sequencer_, std::make_shared<SilentEventSink>(), readAnswers(inputs, "-"),
                                               lines_ ? &*lines_ : nullptr, refused_, operator_);
        host_->start();
    }
    void send(const std::string& json) { host_->sendRequest(OTX::FromJSON(json)); }
    void end() {
        host_->finish();
        operator_->finish();
    }

    std::istringstream nothing_;
    Inputs inputs_{nothing_};
    FakeSequencer sequencer_;
    FakePort scripted_;    // what the script sends
    FakePort unattended_;  // what the operator sends
    std::ostringstream err_;
    std::ostringstream refused_;
    std::shared_ptr<Operator> operator_;
    std::optional<InterruptibleLines> lines_;
    std::shared_ptr<ScriptedHost> host_;
};

const std::string defaultTaken = resultEvent("InputDialog", "\"x\"") + closedEvent("InputDialog");

TEST_F(OperatorScript, WhatNoRuleAnswersIsTheOperators) {
    begin("[]");
    send(opened);
    unattended_.await(closedEvent("InputDialog"));
    end();
    EXPECT_EQ(unattended_.take(), defaultTaken);
}

TEST_F(OperatorScript, WhatARuleAnswersIsNot) {
    begin(R"([{"on":"HMI-OpenScreen","screen":"InputDialog","send":[{"eventType":"HMI-ScreenClosed",
        "screenName":"InputDialog"}]}])");
    send(opened);
    scripted_.await(closedEvent("InputDialog"));
    send(opened);  // the rule is used up
    unattended_.await(closedEvent("InputDialog"));
    end();
    EXPECT_EQ(scripted_.take(), closedEvent("InputDialog"));
    EXPECT_EQ(unattended_.take(), defaultTaken);
}

TEST_F(OperatorScript, ARuleThatLeavesADialogOpenDoesNotHoldTheRun) {
    begin(R"([{"on":"HMI-OpenScreen","send":[{"eventType":"HMI-OutParameterValueChanged","screenName":"InputDialog",
        "parameters":{"result":"y"}}]},
        {"on":"HMI-OpenScreen","screen":"InputDialog","send":[{"eventType":"HMI-ScreenClosed",
        "screenName":"InputDialog"}]}])");
    send(opened);
    unattended_.await(closedEvent("InputDialog"));
    end();
    EXPECT_EQ(scripted_.take(), resultEvent("InputDialog", "\"y\""));
}

TEST_F(OperatorScript, ARuleForALaterMessageMayStillCloseIt) {
    begin(R"([{"on":"HMI-OpenScreen","screen":"M","send":[]},
        {"on":"HMI-OpenScreen","screen":"InputDialog","send":[]},
        {"on":"HMI-HighlightScreen","send":[{"eventType":"HMI-ScreenClosed","screenName":"M"}]}])");
    send(R"({"eventType":"HMI-OpenScreen","screenName":"M","modal":true,"parameters":{}})");
    send(opened);  // whom nobody can close any more
    unattended_.await(closedEvent("InputDialog"));
    send(R"({"eventType":"HMI-HighlightScreen","screenName":"M"})");
    scripted_.await(closedEvent("M"));
    end();
    EXPECT_EQ(unattended_.take(), defaultTaken);
}

TEST_F(OperatorScript, WhatTheRunClosesIsNotHandedOver) {
    begin(R"([{"on":"HMI-OpenScreen","screen":"M","send":[]},
        {"on":"HMI-HighlightScreen","send":[{"eventType":"HMI-ScreenClosed","screenName":"M"}]}])");
    send(R"({"eventType":"HMI-OpenScreen","screenName":"M","modal":true,"parameters":{}})");
    send(R"({"eventType":"HMI-CloseScreen","screenName":"M"})");
    send(R"({"eventType":"HMI-HighlightScreen","screenName":"M"})");  // uses the rule up
    send(opened);
    unattended_.await(closedEvent("InputDialog"));
    end();
    EXPECT_EQ(unattended_.take(), defaultTaken);
}

TEST_F(OperatorScript, ControlHasDialogsForItselfWhileItLasts) {
    begin("[]", "{\"await\":\"HMI-OpenScreen\"}\n{\"eventType\":\"HMI-ScreenClosed\",\"screenName\":\"InputDialog\"}\n"
                "{\"await\":\"HMI-CloseScreen\"}\n");
    send(opened);
    scripted_.await(closedEvent("InputDialog"));
    send(R"({"eventType":"HMI-OpenScreen","screenName":"ChoiceDialog","modal":true,"parameters":{"options":[1]}})");
    send(R"({"eventType":"HMI-CloseScreen","screenName":"N"})");  // the end of the lines
    unattended_.await(closedEvent("ChoiceDialog"));
    end();
    EXPECT_EQ(unattended_.take(), closedEvent("ChoiceDialog"));
    EXPECT_EQ(refused_.str(), "");
}

TEST_F(OperatorScript, ASecondOpeningEndsWithTheOneThatIsHeldBack) {
    begin(R"([{"on":"HMI-OpenScreen","send":[]},
        {"on":"FlowStopped","send":[{"eventType":"HMI-ScreenClosed","screenName":"InputDialog"}]}])");
    send(opened);
    send(opened);
    send(R"({"eventType":"FlowStopped","status":{"id":0}})");
    scripted_.await(closedEvent("InputDialog"));
    end();
    EXPECT_EQ(unattended_.take(), "");
}

TEST_F(OperatorScript, WhereAllRestARuleThatIsLeftClosesNothing) {
    begin(R"([{"on":"HMI-OpenScreen","send":[]},
        {"on":"FlowStopped","send":[{"eventType":"HMI-ScreenClosed","screenName":"InputDialog"}]}])");
    send(opened);
    for (std::string done; done != defaultTaken; done += unattended_.take())  // until the first answer, which is none, isn't under way any more
        host_->rests();
    end();
}

TEST_F(OperatorScript, WhereAllRestAnAwaitIsNobody) {
    begin("[]", "{\"await\":\"Never\"}\n{\"eventType\":\"HMI-ScreenClosed\",\"screenName\":\"InputDialog\"}\n");
    send(opened);
    for (std::string done; done != defaultTaken; done += unattended_.take())  // until the line has been read
        host_->rests();
    end();
}

TEST_F(OperatorScript, WhereAllRestAnswersUnderWayAreStillToCome) {
    begin(R"([{"on":"start","delayMs":3600000,"send":[{"eventType":"HMI-ScreenClosed","screenName":"InputDialog"}]}])");
    send(opened);
    host_->rests();
    end();
    EXPECT_EQ(unattended_.take(), "");
}

TEST_F(OperatorScript, WhereAllRestAPipeMayBringMoreLines) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    lines_.emplace(inputs_, "/dev/fd/" + std::to_string(ends[0]));
    begin("[]");
    send(opened);
    host_->rests();
    const std::string line = "{\"eventType\":\"HMI-ScreenClosed\",\"screenName\":\"InputDialog\"}\n";
    ASSERT_EQ(write(ends[1], line.data(), line.size()), ssize_t(line.size()));
    scripted_.await(closedEvent("InputDialog"));
    end();
    EXPECT_EQ(unattended_.take(), "");
    close(ends[0]);
    close(ends[1]);
}

TEST_F(OperatorScript, WhereAllRestAStoppedFlowIsCancelled) {
    begin("[]", "{\"await\":\"Never\"}\n");
    send(R"({"eventType":"FlowStopped","status":{"id":0}})");
    while (!host_->hasFailed())  // until the line has been read
        host_->rests();
    end();
    EXPECT_EQ(scripted_.take(), "\"cancel\"\n");
    EXPECT_NE(refused_.str().find("nobody is left to resume it"), std::string::npos);
}

// Tells what it hears, as a line of words.
class Listener : public Attendant {
public:
    explicit Listener(std::string& heard) : heard_(heard) {}
    void take(const ScreenNews& news) override {
        static const std::map<ScreenNews::Kind, std::string> words{
            {ScreenNews::Kind::opened, "opened"},           {ScreenNews::Kind::changed, "changed"},
            {ScreenNews::Kind::highlighted, "highlighted"}, {ScreenNews::Kind::closed, "closed"},
            {ScreenNews::Kind::settled, "settled"},         {ScreenNews::Kind::cancelled, "cancelled"},
            {ScreenNews::Kind::waiting, "waiting"}};
        heard_ += words.at(news.kind) + ' ' + news.screen + '\n';
    }

private:
    std::string& heard_;
};

TEST(OperatorBehindAScript, HearsOfWhatTheScriptDoesAheadOfTheDeed) {
    std::string heard;
    const auto theOperator =
        std::make_shared<Operator>(std::make_unique<Listener>(heard), std::make_unique<MemoryInput>(), nullptr);
    FakeSequencer sequencer;
    FakePort done;
    std::ostringstream refused;
    const std::shared_ptr<ScriptedHost>* host = nullptr;
    sequencer.sendEvent = [&](const COtxValue& event) {
        (*host)->sendRequest(OTX::FromJSON(R"({"eventType":"HMI-HighlightScreen","screenName":"B"})"));
        done.sendEvent(event);
    };
    sequencer.control = [&](const std::string&) {
        (*host)->sendRequest(OTX::FromJSON(R"({"eventType":"HMI-CloseScreen","screenName":"B"})"));
        done.cancel();
        return COtxValue();
    };
    std::istringstream rules(R"([{"on":"a","send":[{"eventType":"HMI-ScreenClosed","screenName":"A"},
        {"eventType":"HMI-Other","screenName":"A"},{"control":"cancel"}]}])");
    Inputs inputs(rules);
    const auto made = std::make_shared<ScriptedHost>(sequencer, std::make_shared<SilentEventSink>(),
                                                     readAnswers(inputs, "-"), nullptr, refused, theOperator);
    host = &made;
    made->start();
    made->sendRequest(OTX::FromJSON(R"({"eventType":"a"})"));
    done.await("cancel");
    made->finish();
    theOperator->start();
    theOperator->finish();
    EXPECT_EQ(heard, "settled A\nhighlighted B\nhighlighted B\ncancelled \nclosed B\n");
}

}  // namespace
