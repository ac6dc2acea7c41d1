// A host that answers from inside the message, on the thread that delivered it.
#include "Documents.h"
#include "ScreenTest.h"
#include "ThreadCount.h"

#include <algorithm>
#include <vector>

namespace {

using namespace api;

class ScreenAnswer : public ScreenTest {
protected:
    // Answers a message of this kind for that screen.
    template <class Answer>
    void answerAt(const std::string& eventType, const std::string& screen, Answer answer) {
        host->reaction = [eventType, screen, answer](const COtxValue& message) {
            if (isMessage(message, eventType, screen)) answer();
        };
    }
};

TEST_F(ScreenAnswer, ToAnOpeningMayWriteThroughAnotherScreen) {
    beginScreens(openScreen("a1", "panel"), set("a2", "x", 5));
    answerAt(opened, "panel", [this] { write("y", 3); });
    startUntilOpen("panel");
    EXPECT_EQ(global("y"), 3);
    go();
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(ScreenAnswer, ToItsOwnOpeningIsTooEarly) {
    beginScreens(openScreen("a1", "panel", {{"outArg", "y", "y"}}));
    std::string written;
    std::string closed;
    answerAt(opened, "panel", [&] {
        written = outValue(sequencer(), "panel", "y", "3");
        closed = closedByOperator(sequencer(), "panel");
    });
    startUntilOpen("panel");
    go();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(written, "Unknown screen: panel");
    EXPECT_EQ(closed, "") << "a closing of a screen that isn't open is ignored";
}

TEST_F(ScreenAnswer, ToASecondOpeningMayCloseTheFirst) {
    beginScreens(openScreen("a1", "panel", {{"outArg", "y", "y"}}) + openScreen("a2", "panel", {{"outArg", "x", "x"}}),
                 closeScreen("a3", "panel"));
    MessageCount openings{opened, "panel"};
    std::string closed = "not asked";
    host->reaction = [&](const COtxValue& message) {
        if (openings.note(message) && openings.count() == 2) closed = closedByOperator(sequencer(), "panel");
    };
    startUntilOpen("panel");
    waitUntil("the second one", [this] { return outValue(sequencer(), "panel", "x", "3").empty(); });
    EXPECT_EQ(closed, "");
    EXPECT_EQ(outValue(sequencer(), "panel", "y", "3"), "Unknown variable: y");
    go();
    heard(closing, "panel");
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(ScreenAnswer, ToAnOpeningMayBeAControlCommand) {
    for (const char* const command : {"status", "cancel"}) {
        beginScreens(openScreen("a1", "panel", {}, true), set("a2", "x", 5));
        std::string answer;
        answerAt(opened, "panel", [&] { answer = control(command); });
        start();
        if (command == std::string("status")) {
            waitUntil("the opening", [this] { return isOpen("panel"); });
            EXPECT_EQ(closedByOperator(sequencer(), "panel"), "");
            go();
            EXPECT_EQ(outcome(), "{}");
            EXPECT_TRUE(answer.starts_with(R"({"flows":)")) << answer;
        } else {
            EXPECT_EQ(outcome(), cancelled);
            EXPECT_EQ(answer, ok);
            EXPECT_EQ(global("x"), 0);
        }
        session.reset();
    }
}

TEST_F(ScreenAnswer, ToTheClosingMayBeThatItIsClosed) {
    beginScreens(openScreen("a1", "panel", {{"inArg", "x", "x"}}) + closeScreen("a2", "panel"), set("a3", "y", 2));
    std::string answer = "not asked";
    answerAt(closing, "panel", [&] { answer = closedByOperator(sequencer(), "panel"); });
    startUntilOpen("keys");
    heard(closing, "panel");
    go();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(answer, "");
    EXPECT_EQ(global("y"), 2);
}

// What the host has closed isn't closed for it once more.
TEST_F(ScreenAnswer, ToTheClosingOfAllMayCloseTheRest) {
    beginScreens(openScreen("a1", "a") + openScreen("a2", "b", {{"inArg", "x", "x"}}) + openScreen("a3", "c"));
    std::string answer = "not asked";
    MessageCount ofA{closing, "a"};
    MessageCount ofB{closing, "b"};
    MessageCount ofC{closing, "c"};
    host->reaction = [&](const COtxValue& message) {
        ofB.note(message);
        ofC.note(message);
        if (ofA.note(message)) answer = closedByOperator(sequencer(), "b");
    };
    startUntilOpen("c");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(answer, "");
    EXPECT_EQ(ofA.count(), 1U);
    EXPECT_EQ(ofB.count(), 0U);
    EXPECT_EQ(ofC.count(), 1U);
}

// From the closing on, though the screen's thread can only be waited for later.
TEST_F(ScreenAnswer, ThatClosesAScreenEndsItsChanges) {
    beginScreens(openScreen("a1", "a", {{"inArg", "x", "x"}}) + openScreen("a2", "panel"));
    MessageCount changes{changed, "a"};
    host->reaction = [&](const COtxValue& message) {
        changes.note(message);
        if (!isMessage(message, opened, "panel")) return;
        EXPECT_EQ(closedByOperator(sequencer(), "a"), "");
        for (int number = 0; number < 1000; ++number) write("x", number);
    };
    startUntilOpen("panel");
    go();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(changes.count(), 0U);
}

TEST_F(ScreenAnswer, ToAChangeMayChangeTheNextVariable) {
    beginScreens(openScreen("a1", "a", {{"inArg", "x", "x"}, {"inArg", "y", "y"}}));
    host->reaction = [&](const COtxValue& message) {
        if (isMessage(message, changed, "a") && parameter(message, "x") == "1") write("y", 2);
    };
    startUntilOpen("a");
    write("x", 1);
    EXPECT_EQ(parameter(heard(changed, "a"), "x"), "1");
    EXPECT_EQ(parameter(heard(changed, "a"), "y"), "2");
    go();
    EXPECT_EQ(outcome(), "{}");
}

}  // namespace
