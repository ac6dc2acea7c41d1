// Host objects that fail when they are told of a screen's opening, highlighting and closing, and one that has gone.
#include "Documents.h"
#include "Gate.h"
#include "LaneDocuments.h"
#include "ScreenTest.h"
#include "ThreadCount.h"

#include <otx/value/COtxException.h>

#include <stdexcept>

namespace {

using namespace api;

class ScreenHostFailure : public ScreenTest {
protected:
    // Throws at messages of this kind about that screen.
    void failAt(const std::string& eventType, const std::string& screen) {
        host->reaction = [this, eventType, screen](const COtxValue& message) {
            if (isMessage(message, eventType, screen)) fail();
        };
    }
    void expectNoThreadIsLeft() {
        session.reset();
        EXPECT_TRUE(isThreadCountReached(threads));
    }

    const std::size_t threads = threadCount();
    ReactingHost::Reaction failure = [](const COtxValue&) { throw std::runtime_error("no"); };

private:
    void fail() { failure(COtxValue()); }
};

// A handler around the action, of the class that the host throws.
std::string caught(const std::string& action) {
    return handlerOf("ArithmeticException", "h1", action, set("h2", "x", 7));
}

const ReactingHost::Reaction otxException = [](const COtxValue&) {
    throw COtxException(OTX::Exceptions_e::ArithmeticException, "no");
};

// --- opening

TEST_F(ScreenHostFailure, AtTheOpeningIsTheSequencesAndLeavesNothing) {
    beginScreens(caught(openScreen("a1", "panel", {{"inArg", "x", "x"}, {"outArg", "y", "y"}}, true)), set("a2", "x", 8));
    failure = otxException;
    failAt(opened, "panel");
    startUntilOpen("keys");
    waitForGlobal("x", 7);
    EXPECT_FALSE(isOpen("panel"));
    go();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x"), 8);
    expectNoThreadIsLeft();
}

TEST_F(ScreenHostFailure, AtTheOpeningOfAnyKindEndsTheRun) {
    for (const bool isNumber : {false, true}) {
        beginScreens("", openScreen("a1", "panel", {{"inArg", "x", "x"}}));
        if (isNumber) failure = [](const COtxValue&) { throw 5; };
        failAt(opened, "panel");
        startUntilOpen("keys");
        const std::size_t open = threadCount();
        go();
        if (isNumber)
            EXPECT_THROW(outcome(), int);
        else
            EXPECT_EQ(outcome(), "other no");
        EXPECT_TRUE(isThreadCountReached(open)) << "the screen's thread";
        EXPECT_FALSE(isOpen("panel"));
        EXPECT_TRUE(isOpen("keys")) << "a run that fails leaves its screens";
        expectThatTheNextRunWorks();
    }
    expectNoThreadIsLeft();
}

// The screen's thread is in the middle of a message, in which the host wants what the opening holds.
TEST_F(ScreenHostFailure, AtTheOpeningDoesNotKeepTheScreensThreadWaiting) {
    beginScreens(caught(openScreen("a1", "panel", {{"inArg", "y", "y"}})));
    Gate inside;
    inside.open();
    std::string answer;
    host->reaction = [&](const COtxValue& message) {
        if (isMessage(message, changed, "panel")) {
            inside.pass();
            answer = outValue(sequencer(), "keys", "x", "1");
        }
        if (!isMessage(message, opened, "panel")) return;
        write("y", 1);
        inside.awaitArrivals();
        otxException(message);
    };
    startUntilOpen("keys");
    waitForGlobal("x", 7);
    EXPECT_FALSE(isOpen("panel"));
    go();
    EXPECT_EQ(outcome(), "{}");
    expectNoThreadIsLeft();
    EXPECT_EQ(answer, "");
}

TEST_F(ScreenHostFailure, AtASecondOpeningLeavesTheFirstScreen) {
    beginScreens(openScreen("a1", "panel", {{"outArg", "y", "y"}}) + caught(openScreen("a2", "panel", {{"outArg", "x", "x"}})));
    failure = otxException;
    MessageCount openings{opened, "panel"};
    host->reaction = [&](const COtxValue& message) {
        if (openings.note(message) && openings.count() == 2) failure(message);
    };
    startUntilOpen("keys");
    waitForGlobal("x", 7);
    EXPECT_EQ(outValue(sequencer(), "panel", "y", "3"), "");
    EXPECT_EQ(outValue(sequencer(), "panel", "x", "3"), "Unknown variable: x");
    EXPECT_EQ(global("y"), 3);
    go();
    EXPECT_EQ(outcome(), "{}");
    expectNoThreadIsLeft();
}

// --- closing and highlighting

TEST_F(ScreenHostFailure, AtTheClosingIsTheSequencesAndLeavesTheScreen) {
    beginScreens(openScreen("a1", "panel") + caught(closeScreen("a2", "panel")));
    failure = otxException;
    failAt(closing, "panel");
    startUntilOpen("keys");
    waitForGlobal("x", 7);
    EXPECT_TRUE(isOpen("panel"));
    host->reaction = nullptr;
    go();
    EXPECT_EQ(outcome(), "{}");
    expectNoThreadIsLeft();
}

TEST_F(ScreenHostFailure, AtTheHighlightingIsTheSequences) {
    beginScreens(openScreen("a1", "panel") + caught(highlightScreen("a2", "panel")));
    failure = otxException;
    failAt(highlighted, "panel");
    startUntilOpen("keys");
    waitForGlobal("x", 7);
    EXPECT_TRUE(isOpen("panel"));
    go();
    EXPECT_EQ(outcome(), "{}");
    expectNoThreadIsLeft();
}

TEST_F(ScreenHostFailure, AtACancellingKeepsNoScreenFromBeingClosed) {
    beginScreens(openScreen("a1", "a") + openScreen("a2", "b") + openScreen("a3", "c"), set("a4", "x", 9));
    failAt(closing, "a");
    startUntilOpen("c");
    const std::size_t open = threadCount();
    EXPECT_EQ(control("cancel"), "failure no") << "whoever cancels hears of it";
    for (const char* const screen : {"a", "b", "c", "keys"}) heard(closing, screen);
    EXPECT_TRUE(isThreadCountReached(open - 4));
    for (const char* const screen : {"a", "b", "c", "keys"}) EXPECT_FALSE(isOpen(screen));
    EXPECT_EQ(outcome(), cancelled) << "the run's sources are closed all the same";
    EXPECT_EQ(global("x"), 0);
    expectThatTheNextRunWorks();
    expectNoThreadIsLeft();
}

TEST_F(ScreenHostFailure, AtTheEndOfARunIsTheRunsAndClosesEveryScreen) {
    beginScreens(openScreen("a1", "a") + openScreen("a2", "b") + openScreen("a3", "c"));
    failAt(closing, "b");
    startUntilOpen("c");
    go();
    EXPECT_EQ(outcome(), "other no");
    for (const char* const screen : {"a", "b", "c", "keys"}) heard(closing, screen);
    for (const char* const screen : {"a", "b", "c", "keys"}) EXPECT_FALSE(isOpen(screen));
    expectThatTheNextRunWorks();
    expectNoThreadIsLeft();
}

// --- gone

TEST_F(ScreenHostFailure, OfAHostThatHasGoneIsNoneForScreens) {
    begin(procedure("main", doNothing("a0") + openScreen("a1", "panel", {{"inArg", "x", "x"}}) + set("a2", "x", 1) +
                                highlightScreen("a3", "panel") + closeScreen("a4", "panel") + set("a5", "y", 1)),
          handleOf("panel", "panel"));
    host.reset();
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("y"), 1);
    expectNoThreadIsLeft();
}

TEST_F(ScreenHostFailure, OfAHostThatGoesWhileAScreenIsOpenIsNone) {
    beginScreens(openScreen("a1", "panel", {{"inArg", "x", "x"}}), closeScreen("a2", "panel"));
    startUntilOpen("panel");
    write("x", 1);
    heard(changed, "panel");
    host.reset();
    for (int number = 0; number < 1000; ++number) write("x", number);
    go();
    EXPECT_EQ(outcome(), "{}");
    expectNoThreadIsLeft();
}

TEST_F(ScreenHostFailure, OfAHostThatGoesLeavesAModalScreenUntilTheCancel) {
    beginScreens(openScreen("a1", "panel", {}, true));
    startUntilOpen("panel");
    host.reset();
    EXPECT_TRUE(isOpen("panel"));
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    expectNoThreadIsLeft();
}

// The last hold on the host is that of the message, on the screen's thread.
TEST_F(ScreenHostFailure, OfAHostThatGoesDuringAMessageIsNone) {
    beginScreens(openScreen("a1", "panel", {{"inArg", "x", "x"}}));
    Gate inside;
    host->reaction = [&inside](const COtxValue& message) {
        if (isMessage(message, changed, "panel")) inside.pass();
    };
    startUntilOpen("panel");
    write("x", 1);
    inside.awaitArrivals();
    const std::weak_ptr<ReactingHost> gone = host;
    host.reset();
    EXPECT_FALSE(gone.expired());
    inside.open();
    waitUntil("the host's end", [&] { return gone.expired(); });
    go();
    EXPECT_EQ(outcome(), "{}");
    expectNoThreadIsLeft();
}

}  // namespace
