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

TEST_F(OperatorUnattended, DefaultClosesScreens) {
    for (const bool modal : {true, false}) {
        EXPECT_EQ(take(WithoutOperator::defaults, "M", R"({"a":1})", modal), "M: nobody is there, closed\n");
        EXPECT_EQ(port_.take(), closedEvent("M"));
    }
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
