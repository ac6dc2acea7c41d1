// Screens and dialogs where nobody is.
#include "OperatorFakes.h"
#include "operator/Unattended.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace velkotx::host;

class OperatorUnattended : public testing::Test {
protected:
    // What is said.
    std::string take(WithoutOperator mode, const std::string& screen, const std::string& parameters, bool modal = true) {
        Unattended nobody(mode, port_, err_);
        nobody.take(news(R"({"eventType":"HMI-OpenScreen","screenName":")" + screen + R"(","modal":)" +
                         (modal ? "true" : "false") + R"(,"parameters":)" + parameters + "}"));
        std::string said = err_.str();
        err_.str({});
        return said;
    }

    FakePort port_;
    std::ostringstream err_;
};

TEST_F(OperatorUnattended, FailNamesTheDialogAndItsTexts) {
    EXPECT_EQ(take(WithoutOperator::fail, "ChoiceDialog", R"({"title":"Axle\n2","options":["a","b"]})"),
              "ChoiceDialog: nobody is there to answer, the run is cancelled\n  options = [\"a\",\"b\"]\n"
              "  title = Axle\\n2\n");
    EXPECT_EQ(port_.take(), "cancel\n");
}

TEST_F(OperatorUnattended, KnowsWhetherItHasFailed) {
    Unattended nobody(WithoutOperator::fail, port_, err_);
    nobody.take(news(R"({"eventType":"HMI-OpenScreen","screenName":"M","modal":false})"));
    EXPECT_FALSE(nobody.hasFailed());
    port_.refusals["cancel"] = "Invalid thread id: 0";  // the run has just ended
    nobody.take(news(R"({"eventType":"HMI-OpenScreen","screenName":"M","modal":true})"));
    EXPECT_TRUE(nobody.hasFailed());
    EXPECT_EQ(err_.str(), "M: nobody is there to answer, the run is cancelled\n");
}

TEST_F(OperatorUnattended, FailLeavesScreensThatHoldNobody) {
    EXPECT_EQ(take(WithoutOperator::fail, "M", "{}", false), "");
    EXPECT_EQ(port_.take(), "");
}

TEST_F(OperatorUnattended, DefaultAnswersWithIt) {
    EXPECT_EQ(take(WithoutOperator::defaults, "ChoiceDialog", R"({"options":["a","b"],"default":1})"),
              "ChoiceDialog: nobody is there, answered with its default, 1\n");
    EXPECT_EQ(port_.take(), resultEvent("ChoiceDialog", "1") + closedEvent("ChoiceDialog"));
    EXPECT_EQ(take(WithoutOperator::defaults, "InputDialog", R"({"initialValue":"x"})"),
              "InputDialog: nobody is there, answered with its default, x\n");
    EXPECT_EQ(port_.take(), resultEvent("InputDialog", "\"x\"") + closedEvent("InputDialog"));
}

TEST_F(OperatorUnattended, WithoutADefaultADialogIsClosedWithoutAnAnswer) {
    for (const char* dialog : {"ChoiceDialog", "InputDialog", "ConfirmDialog", "ShowDocumentDialog"}) {
        EXPECT_EQ(take(WithoutOperator::defaults, dialog, R"({"options":["a"]})"),
                  dialog + std::string(": nobody is there, closed without an answer\n"));
        EXPECT_EQ(port_.take(), closedEvent(dialog));
    }
}

TEST_F(OperatorUnattended, DefaultClosesModalScreensAtOnce) {
    EXPECT_EQ(take(WithoutOperator::defaults, "M", R"({"a":1})"), "M: nobody is there, closed\n");
    EXPECT_EQ(port_.take(), closedEvent("M"));
}

// What is said and done each time that the run waits.
class OperatorUnattendedWaiting : public OperatorUnattended {
protected:
    void open(const std::string& screen, const std::string& parameters = "{}") {
        nobody().take(news(R"({"eventType":"HMI-OpenScreen","screenName":")" + screen + R"(","parameters":)" + parameters + "}"));
    }
    std::string wait() {
        nobody().take({ScreenNews::Kind::waiting, {}, false, {}});
        std::string said = err_.str() + port_.take();
        err_.str({});
        return said;
    }
    Unattended& nobody() { return mode_ == WithoutOperator::fail ? failing_ : defaults_; }

    WithoutOperator mode_ = WithoutOperator::fail;
    Unattended failing_{WithoutOperator::fail, port_, err_};
    Unattended defaults_{WithoutOperator::defaults, port_, err_};
};

const std::string cannotGoOn = ": the run waits and nobody is there to close it or to set what it gives out, the run is cancelled\n";

TEST_F(OperatorUnattendedWaiting, FailCancelsAndNamesAllThatIsOpen) {
    open("A", R"({"a":1})");
    open("B");
    open("A", R"({"a":9})");
    open("C");
    nobody().take(news(R"({"eventType":"HMI-InParameterValueChanged","screenName":"A","parameters":{"a":2}})"));
    nobody().take(news(R"({"eventType":"HMI-CloseScreen","screenName":"B"})"));
    port_.forget("C");
    EXPECT_EQ(wait(), "A" + cannotGoOn + "  a = 2\ncancel\n");
    EXPECT_TRUE(nobody().hasFailed());
    EXPECT_EQ(wait(), "") << "once is enough";
}

TEST_F(OperatorUnattendedWaiting, FailHasNothingToDoWithoutScreens) {
    EXPECT_EQ(wait(), "");
    EXPECT_FALSE(nobody().hasFailed());
}

TEST_F(OperatorUnattendedWaiting, DefaultClosesTheNewestEachTimeAndThenCancels) {
    mode_ = WithoutOperator::defaults;
    EXPECT_EQ(wait(), "") << "no screen was ever open";
    open("A");
    open("B");
    EXPECT_EQ(err_.str() + port_.take(), "") << "the run may have a use for them";
    EXPECT_EQ(wait(), "B: nobody is there, closed\n" + closedEvent("B"));
    EXPECT_EQ(wait(), "A: nobody is there, closed\n" + closedEvent("A"));
    EXPECT_FALSE(nobody().hasFailed());
    EXPECT_EQ(wait(), "the run waits, no screen is open any more and nobody is there, it is cancelled\ncancel\n");
    EXPECT_TRUE(nobody().hasFailed());
    EXPECT_EQ(wait(), "");
}

TEST_F(OperatorUnattended, DefaultSaysWhatIsRefused) {
    const std::string event = resultEvent("InputDialog", "\"x\"");
    port_.refusals[event.substr(0, event.size() - 1)] = "Unknown screen: InputDialog";
    EXPECT_EQ(take(WithoutOperator::defaults, "InputDialog", R"({"initialValue":"x"})"),
              "InputDialog: nobody is there, the default was refused: Unknown screen: InputDialog\n");
}

TEST_F(OperatorUnattended, WhatHasGoneNeedsNothing) {
    port_.forget("ConfirmDialog");
    for (const auto mode : {WithoutOperator::fail, WithoutOperator::defaults})
        EXPECT_EQ(take(mode, "ConfirmDialog", "{}"), "");
    EXPECT_EQ(port_.take(), "");
}

TEST_F(OperatorUnattended, OtherNewsAreNothing) {
    Unattended nobody(WithoutOperator::fail, port_, err_);
    nobody.take(news(R"({"eventType":"HMI-CloseScreen","screenName":"M"})"));
    nobody.take(news(R"({"eventType":"HMI-InParameterValueChanged","screenName":"M","parameters":{"a":1}})"));
    EXPECT_EQ(err_.str() + port_.take(), "");
}

}  // namespace
