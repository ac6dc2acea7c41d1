// The script comes first: what the operator hears of screens that it may see to.
#include "FakeSequencer.h"
#include "OperatorFakes.h"
#include "objects/SilentEventSink.h"
#include "operator/Operator.h"
#include "operator/Unattended.h"
#include "program/Inputs.h"
#include "program/script/InterruptibleLines.h"
#include "program/script/ScriptedHost.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
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

}  // namespace
