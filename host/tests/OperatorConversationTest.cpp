// The operator at a terminal: prompts, their order, screens and their commands.
#include "OperatorFakes.h"
#include "operator/Conversation.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace velkotx::host;

class OperatorConversation : public testing::Test {
protected:
    // What is shown since the last time.
    std::string take(const std::string& json) {
        conversation_.take(news(json));
        return shown();
    }
    std::string type(const std::string& line) {
        conversation_.obey(line);
        return shown();
    }
    std::string tell(ScreenNews::Kind kind, const std::string& screen = {}) {
        conversation_.take({kind, screen, false, {}});
        return shown();
    }
    std::string shown() {
        conversation_.settle(typed_);
        std::string text = terminal_.str();
        terminal_.str({});
        return text;
    }

    static std::string open(const std::string& screen, bool modal, const std::string& parameters) {
        return R"({"eventType":"HMI-OpenScreen","screenName":")" + screen + R"(","modal":)" + (modal ? "true" : "false") +
               R"(,"parameters":)" + parameters + "}";
    }
    static std::string change(const std::string& screen, const std::string& parameters) {
        return R"({"eventType":"HMI-InParameterValueChanged","screenName":")" + screen + R"(","parameters":)" +
               parameters + "}";
    }
    static std::string close(const std::string& screen) {
        return R"({"eventType":"HMI-CloseScreen","screenName":")" + screen + "\"}";
    }
    static std::string question(const std::string& title) {
        return open("ConfirmDialog", true,
                    R"({"title":")" + title + R"(","messageType":{"MessageType":"YESNO_QUESTION"}})");
    }

    FakePort port_;
    std::ostringstream terminal_;
    std::string typed_;
    Conversation conversation_{port_, terminal_};
};

TEST_F(OperatorConversation, AsksAgainUntilTheAnswerFits) {
    EXPECT_EQ(conversation_.asks(), 0U);
    EXPECT_EQ(take(question("Sure")), "-- Question: Sure --\ny yes, n no: ");
    EXPECT_EQ(type("maybe"), "y or n is needed\ny yes, n no: ");
    EXPECT_EQ(port_.take(), "");
    EXPECT_EQ(type("n"), "");
    EXPECT_EQ(port_.take(), resultEvent("ConfirmDialog", R"({"ConfirmationType":"NO"})") + closedEvent("ConfirmDialog"));
    EXPECT_EQ(conversation_.asks(), 0U);
}

TEST_F(OperatorConversation, AsksInTheOrderOfTheOpenings) {
    conversation_.take(news(open("InputDialog", true, "{}")));
    conversation_.take(news(question("Sure")));
    conversation_.take(news(open("ShowDocumentDialog", true, R"({"document":"d"})")));
    EXPECT_EQ(shown(), "-- Input --\nText: ");
    const std::size_t first = conversation_.asks();
    EXPECT_EQ(type("abc"), "-- Question: Sure --\ny yes, n no: ");
    EXPECT_NE(conversation_.asks(), first);
    EXPECT_EQ(type("y"), "-- Document --\nDocument: d\nEnter goes on: ");
    EXPECT_EQ(type(""), "");
    EXPECT_EQ(port_.take(), resultEvent("InputDialog", "\"abc\"") + closedEvent("InputDialog") +
                                resultEvent("ConfirmDialog", R"({"ConfirmationType":"YES"})") +
                                closedEvent("ConfirmDialog") + closedEvent("ShowDocumentDialog"));
}

TEST_F(OperatorConversation, ClosesWithoutAnAnswer) {
    take(question("Sure"));
    conversation_.closeWithoutAnswer();
    EXPECT_EQ(shown(), "\n-- closed without an answer\n");
    EXPECT_EQ(port_.take(), closedEvent("ConfirmDialog"));
}

TEST_F(OperatorConversation, SaysNothingOfAResultThatTheSequenceHasNoUseFor) {
    port_.refusals[resultEvent("ConfirmDialog", R"({"ConfirmationType":"YES"})").substr(
        0, resultEvent("ConfirmDialog", R"({"ConfirmationType":"YES"})").size() - 1)] = "Unknown variable: result";
    take(open("ConfirmDialog", true, "{}"));
    EXPECT_EQ(type(""), "");
    EXPECT_EQ(port_.take(), resultEvent("ConfirmDialog", R"({"ConfirmationType":"YES"})") + closedEvent("ConfirmDialog"));
}

TEST_F(OperatorConversation, SaysWhatTheRunRefuses) {
    const std::string event = resultEvent("InputDialog", "\"x\"");
    port_.refusals[event.substr(0, event.size() - 1)] = "Unknown screen: InputDialog";
    take(open("InputDialog", true, "{}"));
    EXPECT_EQ(type("x"), "-- the run refuses it: Unknown screen: InputDialog\n");
    EXPECT_EQ(conversation_.asks(), 0U);
}

TEST_F(OperatorConversation, SaysThatADialogWentWithTheRun) {
    take(question("Sure"));
    EXPECT_EQ(tell(ScreenNews::Kind::cancelled), "");
    EXPECT_EQ(take(close("ConfirmDialog")), "\n-- ConfirmDialog is gone: the run was cancelled\n");
    EXPECT_EQ(conversation_.asks(), 0U);
}

TEST_F(OperatorConversation, SaysWhoElseClosedADialog) {
    take(question("Sure"));
    EXPECT_EQ(take(close("ConfirmDialog")), "\n-- ConfirmDialog is gone: the run has closed it\n");
    take(question("Sure"));
    EXPECT_EQ(tell(ScreenNews::Kind::settled, "ConfirmDialog"), "\n-- ConfirmDialog is gone: it was answered elsewhere\n");
    take(question("Sure"));
    conversation_.finish();
    EXPECT_EQ(shown(), "\n-- ConfirmDialog is gone: the run is over\n");
}

TEST_F(OperatorConversation, ADialogThatWasNotAskedYetGoesWithoutAWord) {
    take(open("InputDialog", true, "{}"));
    take(question("Sure"));
    EXPECT_EQ(take(close("ConfirmDialog")), "");
    EXPECT_EQ(type("x"), "");
}

TEST_F(OperatorConversation, ASecondDialogOfTheNameEndsWithTheFirst) {
    take(question("One"));
    EXPECT_EQ(take(question("Two")), "\n-- another ConfirmDialog ends with the one that is open:\n-- Question: Two --\n"
                                     "-- Question: One --\ny yes, n no: ");
    type("y");
    EXPECT_EQ(port_.take(), resultEvent("ConfirmDialog", R"({"ConfirmationType":"YES"})") + closedEvent("ConfirmDialog"));
    EXPECT_EQ(conversation_.asks(), 0U);
}

TEST_F(OperatorConversation, ASecondOneOfADialogThatWaitsForItsTurnChangesNothing) {
    take(open("InputDialog", true, "{}"));
    take(question("One"));
    EXPECT_EQ(take(question("Two")),
              "\n-- another ConfirmDialog ends with the one that is open:\n-- Question: Two --\nText: ");
    EXPECT_EQ(type("x"), "-- Question: One --\ny yes, n no: ");
}

TEST_F(OperatorConversation, WhatHasGoneWithAnEarlierOneIsNotShown) {
    port_.forget("ConfirmDialog");
    port_.forget("Monitor");
    conversation_.take(news(question("One")));
    conversation_.take(news(open("InputDialog", true, "{}")));
    EXPECT_EQ(take(open("Monitor", false, "{}")), "-- Input --\nText: ");
    EXPECT_EQ(type("x"), "");
    EXPECT_EQ(conversation_.asks(), 0U);
}

TEST_F(OperatorConversation, ShowsAScreenAndItsChanges) {
    EXPECT_EQ(take(open("Monitor", false, R"({"voltage":3.5,"name":"Torvik"})")),
              "-- Screen: Monitor --\nname = Torvik\nvoltage = 3.5\nMonitor> ");
    EXPECT_FALSE(conversation_.isStale());
    EXPECT_EQ(take(change("Monitor", R"({"voltage":3.6})")), "");
    EXPECT_EQ(take(change("Monitor", R"({"voltage":3.7})")), "");
    EXPECT_TRUE(conversation_.isStale());
    conversation_.refresh();
    EXPECT_EQ(shown(), "\n-- Screen: Monitor --\nname = Torvik\nvoltage = 3.7\nMonitor> ");
    EXPECT_FALSE(conversation_.isStale());
    EXPECT_EQ(take(close("Monitor")), "\n-- Monitor is gone: the run has closed it\n");
}

TEST_F(OperatorConversation, AChangeAheadOfTheOpeningCounts) {
    EXPECT_EQ(take(change("Monitor", R"({"voltage":3.6})")), "");
    EXPECT_EQ(conversation_.asks(), 0U);
    EXPECT_EQ(take(open("Monitor", false, R"({"voltage":3.5})")), "-- Screen: Monitor --\nvoltage = 3.6\nMonitor> ");
}

TEST_F(OperatorConversation, AChangeBehindTheClosingDoesNot) {
    take(open("Monitor", false, R"({"voltage":3.5})"));
    take(close("Monitor"));
    EXPECT_EQ(take(change("Monitor", R"({"voltage":3.6})")), "");
    EXPECT_FALSE(conversation_.isStale());
    EXPECT_EQ(take(open("Monitor", false, R"({"voltage":1.5})")), "-- Screen: Monitor --\nvoltage = 1.5\nMonitor> ");
}

TEST_F(OperatorConversation, ASecondOpeningOfAScreenLeavesTheFirst) {
    take(open("Monitor", false, R"({"a":1})"));
    EXPECT_EQ(take(open("Monitor", true, R"({"a":2})")),
              "\n-- another Monitor ends with the one that is open:\n-- Screen: Monitor --\na = 2\n"
              "-- Screen: Monitor --\na = 1\nMonitor> ");
    EXPECT_EQ(type("show"), "-- Screen: Monitor --\na = 1\nMonitor> ");
}

TEST_F(OperatorConversation, SetsParametersByTheirType) {
    take(open("Monitor", true, R"({"count":1,"limit":2.5,"name":"n","on":true,"list":[1]})"));
    const auto sent = [&](const std::string& line) {
        terminal_.str({});
        conversation_.obey(line);
        const std::string done = port_.take();
        return done.empty() ? terminal_.str() : done;
    };
    EXPECT_EQ(sent("set count 7"), resultEvent("Monitor", "7", "count"));
    EXPECT_EQ(sent("set count=8"), resultEvent("Monitor", "8", "count"));
    EXPECT_EQ(sent("set count = 9"), resultEvent("Monitor", "9", "count"));
    EXPECT_EQ(sent("set count many"), "count: a value of type Integer is needed\n");
    EXPECT_EQ(sent("set limit 3"), resultEvent("Monitor", "3.0", "limit"));
    EXPECT_EQ(sent("set name 17"), resultEvent("Monitor", "\"17\"", "name"));
    EXPECT_EQ(sent("set on false"), resultEvent("Monitor", "false", "on"));
    EXPECT_EQ(sent("set list [2,3]"), resultEvent("Monitor", "[2,3]", "list"));
    EXPECT_EQ(sent("set other free text"), resultEvent("Monitor", "\"free text\"", "other"));
    EXPECT_EQ(sent("set other2 4"), resultEvent("Monitor", "4", "other2"));
    EXPECT_EQ(sent("set name \"q\""), resultEvent("Monitor", "\"q\"", "name"));
    EXPECT_EQ(sent("set name \"\""), resultEvent("Monitor", "\"\"", "name"));
    EXPECT_EQ(sent("set name \"q"), resultEvent("Monitor", R"("\"q")", "name"));
    EXPECT_EQ(sent("set name 17"), resultEvent("Monitor", "\"17\"", "name"));
    EXPECT_EQ(sent("set \"in out\" 5"), resultEvent("Monitor", "5", "in out"));
    EXPECT_EQ(sent("set \"in out\" = 6"), resultEvent("Monitor", "6", "in out"));
    EXPECT_EQ(sent("set"), "set NAME VALUE\n");
    EXPECT_EQ(type(""), "set NAME VALUE\n-- Screen: Monitor --\ncount = 9\nin out = 6\nlimit = 3.0\nlist = [2,3]\nname = 17\n"
                        "on = FALSE\nother = free text\nother2 = 4\nThe run waits until it is closed.\nMonitor> ");
}

TEST_F(OperatorConversation, AGuessedTypeBindsNobody) {
    take(open("Monitor", true, R"({"empty":null})"));
    const auto sent = [&](const std::string& line) {
        conversation_.obey(line);
        return port_.take();
    };
    EXPECT_EQ(sent("set number 117"), resultEvent("Monitor", "117", "number"));
    EXPECT_EQ(sent("set number abc"), resultEvent("Monitor", "\"abc\"", "number"));
    EXPECT_EQ(sent("set number \"118\""), resultEvent("Monitor", "\"118\"", "number"));
    EXPECT_EQ(sent("set empty 1"), resultEvent("Monitor", "1", "empty"));
    take(change("Monitor", R"({"empty":1,"late":2})"));  // its echo
    EXPECT_EQ(sent("set empty abc"), resultEvent("Monitor", "\"abc\"", "empty"));
    EXPECT_EQ(sent("set late abc"), "") << "that one the run has told";
}

TEST_F(OperatorConversation, AParameterThatIsNotBoundIsRefused) {
    const std::string event = resultEvent("Monitor", "4", "x");
    port_.refusals[event.substr(0, event.size() - 1)] = "Unknown variable: x";
    take(open("Monitor", false, "{}"));
    EXPECT_EQ(type("set x 4"), "-- the run refuses it: Unknown variable: x\nMonitor> ");
    EXPECT_EQ(type("show"), "-- Screen: Monitor --\nMonitor> ");
}

TEST_F(OperatorConversation, ClosesAScreen) {
    take(open("Monitor", false, "{}"));
    EXPECT_EQ(type(" close "), "");
    EXPECT_EQ(port_.take(), closedEvent("Monitor"));
    EXPECT_EQ(conversation_.asks(), 0U);
}

TEST_F(OperatorConversation, TurnsToScreens) {
    take(open("A", false, R"({"a":1})"));
    EXPECT_EQ(take(open("B", false, R"({"b":2})")), "\n-- Screen: B --\nb = 2\nB> ");
    EXPECT_EQ(type("screens"), "  A\n* B\nB> ");
    EXPECT_EQ(type("screen"), "  A\n* B\nB> ");
    EXPECT_EQ(type("screen C"), "no screen C is open:\n  A\n* B\nB> ");
    EXPECT_EQ(type("screen A"), "-- Screen: A --\na = 1\nA> ");
    const std::size_t asked = conversation_.asks();
    EXPECT_EQ(take(R"({"eventType":"HMI-HighlightScreen","screenName":"B"})"),
              "\n-- look at B:\n-- Screen: B --\nb = 2\nB> ");
    EXPECT_NE(conversation_.asks(), asked);
    EXPECT_EQ(take(R"({"eventType":"HMI-HighlightScreen","screenName":"C"})"), "");
}

TEST_F(OperatorConversation, ADialogComesAheadOfTheScreens) {
    take(open("Monitor", true, R"({"a":1})"));
    EXPECT_EQ(take(question("Sure")), "\n-- Question: Sure --\ny yes, n no: ");
    take(change("Monitor", R"({"a":2})"));
    conversation_.refresh();
    EXPECT_EQ(shown(), "\n-- Screen: Monitor --\na = 2\ny yes, n no: ");
    EXPECT_EQ(type("y"), "Monitor> ");
}

TEST_F(OperatorConversation, HelpsWithWhatItDoesNotKnow) {
    take(open("Monitor", false, "{}"));
    const std::string help = type("help");
    EXPECT_NE(help.find("\nclose "), std::string::npos);
    EXPECT_EQ(type("nonsense here"), "unknown command: nonsense here\n" + help);
    conversation_.closeWithoutAnswer();
    EXPECT_EQ(shown(), "\nclose closes the screen, Ctrl-C cancels the run\nMonitor> ");
    EXPECT_EQ(port_.take(), "");
}

TEST_F(OperatorConversation, MessagesOfScreensThatAreNotOpenAreNothing) {
    EXPECT_EQ(take(close("Monitor")) + take(close("ConfirmDialog")), "");
    EXPECT_EQ(tell(ScreenNews::Kind::settled, "Monitor"), "");
    conversation_.finish();
    EXPECT_EQ(shown(), "");
}

TEST_F(OperatorConversation, GivesOverWhatIsOpen) {
    take(open("Monitor", false, R"({"a":1})"));
    take(change("Monitor", R"({"a":2})"));
    take(question("Sure"));
    const auto open = conversation_.openScreens();
    ASSERT_EQ(open.size(), 2U);
    EXPECT_EQ(open[0].screen, "ConfirmDialog");
    EXPECT_EQ(jsonOf(open[1].parameters.at("a")), "2");
}

}  // namespace
