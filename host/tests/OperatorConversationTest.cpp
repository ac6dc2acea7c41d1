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
    EXPECT_EQ(sent("set count many"), "count: a value of type Integer is needed, a whole number\n");
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

TEST_F(OperatorConversation, TakesWhatTheScreenShows) {
    struct Case {
        const char* json;
        const char* shown;
    };
    for (const auto& [json, shown] : {Case{"false", "FALSE"},
                                      Case{"-7", "-7"},
                                      Case{"2.5", "2.5"},
                                      Case{R"({"Float":"NaN"})", "NaN"},
                                      Case{R"({"Float":"-INF"})", "-INF"},
                                      Case{R"("a text")", "a text"},
                                      Case{R"({"ByteField":"0A1B"})", "0A1B"},
                                      Case{R"({"ByteField":"1234"})", "1234"},
                                      Case{R"({"ByteField":"1E10"})", "1E10"},
                                      Case{R"({"ByteField":""})", ""},
                                      Case{R"({"Quantity":{"precision":4,"unit":"V","value":12.5}})", "12.5 V"},
                                      Case{R"({"Quantity":{"precision":16,"unit":"1/min","value":-1.5e-07}})", "-1.5e-07 1/min"},
                                      Case{R"({"Quantity":{"precision":16,"unit":"","value":3.0}})", "3.0"},
                                      Case{R"({"Unit":"km/h"})", "km/h"},
                                      Case{R"({"ConfirmationType":"CANCEL"})", "CANCEL"},
                                      Case{R"({"Encoding":"UTF-8"})", "UTF-8"},
                                      Case{R"({"ConnectionStatus":"eCS_CURRENT"})", "eCS_CURRENT"},
                                      Case{R"({"Enumeration":{"name":"WORN","type":"Grade","value":2}})", "WORN"},
                                      Case{"[1,true]", "[1,true]"},
                                      Case{R"({"a":2.5})", R"({"a":2.5})"}}) {
        FakePort port;
        std::ostringstream terminal;
        Conversation conversation(port, terminal);
        conversation.take(news(open("M", false, std::string(R"({"p":)") + json + "}")));
        conversation.settle({});
        EXPECT_EQ(terminal.str(), std::string("-- Screen: M --\np = ") + shown + "\nM> ");
        conversation.obey(std::string("set p ") + shown);
        EXPECT_EQ(port.take(), resultEvent("M", json, "p")) << terminal.str();
        conversation.obey(std::string("set p = ") + json);
        EXPECT_EQ(port.take(), resultEvent("M", json, "p")) << terminal.str();
    }
}

TEST_F(OperatorConversation, TakesOtherValuesInTheFormOfTheScreen) {
    take(open("M", false, R"({"on":true,"bytes":{"ByteField":"00"},"answer":{"ConfirmationType":"YES"},
        "q":{"Quantity":{"value":12.5,"unit":"V","precision":4}},"plain":{"Quantity":{"value":0,"unit":"","precision":4}}})"));
    const auto sent = [&](const std::string& line) {
        conversation_.obey(line);
        return port_.take();
    };
    const auto volts = [](const std::string& number, const std::string& unit) {
        return R"({"Quantity":{"precision":4,"unit":")" + unit + R"(","value":)" + number + "}}";
    };
    for (const char* text : {"FALSE", "false", "False", "\"FALSE\""})
        EXPECT_EQ(sent(std::string("set on ") + text), resultEvent("M", "false", "on")) << text;
    EXPECT_EQ(sent("set bytes 0c0d"), resultEvent("M", R"({"ByteField":"0C0D"})", "bytes"));
    EXPECT_EQ(sent("set bytes \"0E\""), resultEvent("M", R"({"ByteField":"0E"})", "bytes"));
    EXPECT_EQ(sent("set answer no"), resultEvent("M", R"({"ConfirmationType":"NO"})", "answer"));
    EXPECT_EQ(sent("set q 13.5"), resultEvent("M", volts("13.5", "V"), "q"));
    EXPECT_EQ(sent("set q 13"), resultEvent("M", volts("13.0", "V"), "q"));
    EXPECT_EQ(sent("set q 13.5 V"), resultEvent("M", volts("13.5", "V"), "q"));
    EXPECT_EQ(sent("set q 1350mV"), resultEvent("M", volts("1350.0", "mV"), "q"));
    EXPECT_EQ(sent("set q \"13.5 V\""), resultEvent("M", volts("13.5", "V"), "q"));
    EXPECT_EQ(sent("set plain 5 %"), resultEvent("M", volts("5.0", "%"), "plain"));
    EXPECT_EQ(sent("set plain 5 bar"), resultEvent("M", volts("5.0", "bar"), "plain"));
}

TEST_F(OperatorConversation, ARefusalNamesTheForm) {
    take(open("M", false, R"({"on":true,"bytes":{"ByteField":"00"},"answer":{"ConfirmationType":"YES"},"x":2.5,"list":[],"map":{},
        "q":{"Quantity":{"value":12.5,"unit":"V","precision":4}},"plain":{"Quantity":{"value":0,"unit":"","precision":4}}})"));
    const auto refused = [&](const std::string& line) {
        terminal_.str({});
        conversation_.obey(line);
        EXPECT_EQ(port_.take(), "");
        return terminal_.str();
    };
    EXPECT_EQ(refused("set on 1"), "on: a value of type Boolean is needed, TRUE or FALSE\n");
    EXPECT_EQ(refused("set x 2,5"), "x: a value of type Float is needed, a number such as 2.5\n");
    for (const char* text : {"0A1", "XY", "0A-1B"})
        EXPECT_EQ(refused(std::string("set bytes ") + text),
                  "bytes: a value of type ByteField is needed, hexadecimal digits, two a byte, such as 0A1B\n");
    EXPECT_EQ(refused("set answer perhaps"), "answer: a value of type ConfirmationType is needed, written as YES, or JSON of the "
                                             "form {\"ConfirmationType\": ...}\n");
    for (const char* text : {"many", "13,5", "13,5 V", "1e999 V", "TRUE", "\"\""})
        EXPECT_EQ(refused(std::string("set q ") + text), "q: a value of type Quantity is needed, a number of V such as 2.5, or "
                                                         "one with its unit, 2.5 V\n")
            << text;
    EXPECT_NE(refused("set q 13.5 A").find("q: "), std::string::npos);
    EXPECT_NE(refused("set q 13.5 blubb").find("blubb"), std::string::npos);
    for (const char* text : {"many", "13,5 V", "information", "1.2.3"})
        EXPECT_EQ(refused(std::string("set plain ") + text),
                  "plain: a value of type Quantity is needed, a number such as 2.5, or one with a unit, 2.5 V\n")
            << text;
    EXPECT_EQ(refused("set list 1"), "list: a value of type List is needed, JSON such as [1, 2]\n");
    EXPECT_EQ(refused("set map 1"),
              "map: a value of type Map is needed, JSON such as {\"key\": 1} or {\"Map\": [[1, 2]]}\n");
}

TEST_F(OperatorConversation, KnowsTheElementsThatTheScreenHasShown) {
    const auto grade = [](const std::string& name, const std::string& value) {
        return R"({"Enumeration":{"name":")" + name + R"(","type":"Grade","value":)" + value + "}}";
    };
    take(open("M", false, R"({"grade":)" + grade("GOOD", "1") + "}"));
    EXPECT_EQ(type("set grade WORN"), "grade: a value of type Enumeration is needed, the name of an element that the screen has "
                                      "shown: GOOD, or {\"Enumeration\": {\"type\": \"T\", \"name\": \"N\", \"value\": 1}}\nM> ");
    take(change("M", R"({"grade":)" + grade("WORN", "2") + "}"));
    take(change("M", R"({"grade":)" + grade("GOOD", "1") + "}"));
    EXPECT_EQ(port_.take(), "");
    type("set grade WORN");
    EXPECT_EQ(port_.take(), resultEvent("M", grade("WORN", "2"), "grade"));
    type("set grade GOOD");
    EXPECT_EQ(port_.take(), resultEvent("M", grade("GOOD", "1"), "grade"));
    type("set grade " + grade("LOST", "3"));
    EXPECT_EQ(port_.take(), resultEvent("M", grade("LOST", "3"), "grade"));
}

TEST_F(OperatorConversation, TrueAndFalseAreBooleansWhereNoTypeIsKnown) {
    take(open("M", false, "{}"));
    for (const char* text : {"TRUE", "true", "True"}) {
        EXPECT_EQ(type(std::string("set seen ") + text), "M> ");
        EXPECT_EQ(port_.take(), resultEvent("M", "true", "seen")) << text;
    }
    type("set seen FALSE");
    EXPECT_EQ(port_.take(), resultEvent("M", "false", "seen"));
    type("set seen \"TRUE\"");
    EXPECT_EQ(port_.take(), resultEvent("M", "\"TRUE\"", "seen"));
    type("set seen not TRUE");
    EXPECT_EQ(port_.take(), resultEvent("M", "\"not TRUE\"", "seen"));
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
    for (const char* form : {"TRUE or FALSE", "0A1B", "12.5 V", "YES", "JSON", "\"117\""})
        EXPECT_NE(help.find(form), std::string::npos) << form;
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
