// A screen's thread is inside the host, which comes back to the sequencer while another thread takes the screen away.
#include "BackgroundRun.h"
#include "Documents.h"
#include "Gate.h"
#include "LaneDocuments.h"
#include "ScreenTest.h"
#include "ThreadCount.h"
#include "Until.h"

#include <atomic>
#include <future>
#include <tuple>

namespace {

using namespace api;

// What the host wants, and what takes the screen away meanwhile.
using Crossing = std::tuple<const char*, const char*>;

class ScreenCrossing : public ScreenTest, public testing::WithParamInterface<Crossing> {
protected:
    const std::string wanted = std::get<0>(GetParam());
    const std::string deed = std::get<1>(GetParam());

    // The run is over, and has left its screens.
    bool isAfterTheRun() const { return deed == "SetHost" || deed == "destruction"; }

    void beginDeed() {
        const std::string panel = openScreen("a1", "panel", {{"inArg", "x", "x"}});
        if (deed == "CloseScreen")
            beginScreens(panel, closeScreen("a2", "panel"));
        else if (isAfterTheRun())
            beginScreens(panel, throwUser("t1", "enough", ""));
        else
            beginScreens(panel);
    }

    // Returns when the screen has been taken away.
    void doDeed() {
        if (deed == "CloseScreen" || deed == "end") {
            go();
            session->outcome();
        } else if (deed == "ScreenClosed") {
            EXPECT_EQ(closedByOperator(sequencer(), "panel"), "");
        } else if (deed == "cancel") {
            const std::string answer = control("cancel");
            EXPECT_TRUE(answer == ok || answer == noFirstFlow) << answer;
        } else if (deed == "SetHost") {
            sequencer().SetHost(host);
        } else {
            session.reset();
        }
    }

    // On the screen's thread: the calls come while the screen is there, while it is taken away, and while its taker waits
    // for this thread.
    void comeBack(velkotx::Sequencer& sequencer) {
        const auto isPanelGone = [&] { return outValue(sequencer, "panel", "nobody's", "0") != "Unknown variable: nobody's"; };
        waitUntil("the end of the panel", [&] {
            if (wanted != "cancel") command(sequencer);
            return isPanelGone();
        });
        command(sequencer);
        isPanelGone();
        closedByOperator(sequencer, "panel");
    }

private:
    void command(velkotx::Sequencer& sequencer) {
        if (wanted != "event") outcomeOfControl(sequencer, wanted);
        // A flow that has stopped meanwhile is to go on.
        if (wanted == "stop") outcomeOfControl(sequencer, "run");
    }
};

TEST_P(ScreenCrossing, EndsWithBothDone) {
    const std::size_t threads = threadCount();
    beginDeed();
    velkotx::Sequencer& ownSequencer = sequencer();
    Gate inside;
    MessageCount changes{changed, "panel"};
    std::promise<void> back;
    host->reaction = [&](const COtxValue& message) {
        if (!changes.note(message) || changes.count() > 1) return;
        inside.pass();
        comeBack(ownSequencer);
        back.set_value();
    };
    startUntilOpen("panel");
    if (isAfterTheRun()) {
        go();
        EXPECT_TRUE(outcome().starts_with("exception UserException"));
    }
    write("x", 1);
    inside.awaitArrivals();
    write("x", 2);
    inside.open();
    doDeed();
    EXPECT_EQ(back.get_future().wait_for(longestWait), std::future_status::ready);
    EXPECT_EQ(changes.count(), 1U) << "none after that which was on its way";
    session.reset();
    EXPECT_TRUE(isThreadCountReached(threads));
}

INSTANTIATE_TEST_SUITE_P(OfAll, ScreenCrossing,
                         testing::Combine(testing::Values("event", "status", "stop", "cancel"),
                                          testing::Values("CloseScreen", "ScreenClosed", "cancel", "end", "SetHost",
                                                          "destruction")),
                         [](const auto& crossing) {
                             return std::string(std::get<0>(crossing.param)) + "During" + std::get<1>(crossing.param);
                         });

class ScreenSecondOpening : public ScreenTest, public testing::WithParamInterface<const char*> {};

// Both screens of the name tell of one change, while the second one is on its way in and out.
TEST_P(ScreenSecondOpening, DoesNotKeepTheHostWaiting) {
    const std::string wanted = GetParam();
    const std::size_t threads = threadCount();
    beginScreens(openScreen("a1", "panel", {{"inArg", "x", "x"}}) + openScreen("a2", "panel", {{"inArg", "x", "x"}}));
    Gate inside;
    std::atomic<int> answers{0};
    MessageCount openings{opened, "panel"};
    host->reaction = [&](const COtxValue& message) {
        if (openings.note(message) && openings.count() == 2) {
            write("x", 1);
            inside.awaitArrivals(2);
            inside.open();
        }
        if (!isMessage(message, changed, "panel")) return;
        inside.pass();
        if (wanted == "event")
            outValue(sequencer(), "keys", "y", "1");
        else
            control(wanted);
        ++answers;
    };
    start();
    inside.awaitArrivals(2);
    if (wanted == "cancel") {
        EXPECT_EQ(outcome(), cancelled);
    } else {
        waitUntil("the second opening's end", [this] { return isOpen("panel"); });
        go();
        EXPECT_EQ(outcome(), "{}");
    }
    // No call may be in progress when the sequencer goes, nor one of the host's from inside a message.
    waitUntil("both answers", [&] { return answers == 2; });
    session.reset();
    EXPECT_TRUE(isThreadCountReached(threads));
}

INSTANTIATE_TEST_SUITE_P(OfAll, ScreenSecondOpening, testing::Values("event", "status", "cancel"),
                         [](const auto& wanting) { return std::string(wanting.param); });

class ScreenStop : public ScreenTest, public testing::WithParamInterface<const char*> {};

// The host takes the screen away in its answer to a stop, which no command of another thread may come into; and the screen's
// thread wants one.
TEST_P(ScreenStop, AnsweredWithTheEndOfAScreenDoesNotKeepItsThreadWaiting) {
    const std::string deed = GetParam();
    const std::size_t threads = threadCount();
    beginScreens(openScreen("a1", "panel", {{"inArg", "x", "x"}}) + doNothing("a2"));
    setBreakpoints({"a2"});
    Gate inside;
    inside.open();
    MessageCount changes{changed, "panel"};
    std::string answer;
    host->reaction = [&](const COtxValue& message) {
        if (changes.note(message)) {
            inside.pass();
            waitUntil("the end of the panel", [this] { return !isOpen("panel"); });
            answer = control("status");
        }
        if (entry(message, "eventType") != "FlowStopped") return;
        write("x", 1);
        inside.awaitArrivals();
        if (deed == "cancel")
            EXPECT_EQ(control("cancel"), ok);
        else
            EXPECT_EQ(closedByOperator(sequencer(), "panel"), "");
    };
    start();
    if (deed == "cancel") {
        EXPECT_EQ(outcome(), cancelled);
    } else {
        waitUntil("the stop", [this] { return control("run") == ok; });
        go();
        EXPECT_EQ(outcome(), "{}");
    }
    session.reset();
    EXPECT_TRUE(isThreadCountReached(threads));
    EXPECT_TRUE(answer.starts_with(R"({"flows":)")) << answer;
}

INSTANTIATE_TEST_SUITE_P(OfAll, ScreenStop, testing::Values("cancel", "close"),
                         [](const auto& deed) { return std::string(deed.param); });

}  // namespace
