// Host objects that fail, block or answer at once when a flow tells them of its stop.
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "ThreadCount.h"
#include "Values.h"

#include <otx/value/COtxException.h>
#include <otx/value/Functions.h>

#include <atomic>
#include <future>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

using namespace api;

constexpr int manyTimes = 500;

int flowOf(const COtxValue& message) {
    const COtxValue status = OTX::GetParameter(message, "status", OTX::ValueType::Map);
    return static_cast<int>(OTX::GetParameter(status, "id", OTX::ValueType::Integer).Int());
}

class HostFailure : public FlowTest {
protected:
    // A lane that stops at a1, another one that counts x until it is cancelled, a node behind them.
    void beginLanes() {
        begin(procedure(
            "main", handlerOf("ArithmeticException", "h1",
                              parallel("n1", {set("a1", "y", 1), loopOf("l1", "x", 100, doNothing("a2"))}), set("a3", "g", 3)) +
                        set("a4", "y", 4)));
        setBreakpoints({"a1"});
    }

    // The breakpoint is gone, and so is what the host does: the same sequencer runs as if nothing had been.
    void expectThatTheNextRunWorks() {
        host->reaction = nullptr;
        EXPECT_EQ(control("clearbp"), ok);
        start();
        EXPECT_EQ(outcome(), "{}");
        EXPECT_EQ(global("y"), 4);
    }
};

// --- failing

TEST_F(HostFailure, OfAnOtxExceptionInALaneLeavesTheParallel) {
    beginLanes();
    host->reaction = [](const COtxValue&) { throw COtxException(OTX::Exceptions_e::ArithmeticException, "no"); };
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 3) << "the handler around the Parallel has caught it";
    EXPECT_EQ(global("x"), 101) << "the other lane has run to its end";
    EXPECT_TRUE(flows().empty());
    expectThatTheNextRunWorks();
}

TEST_F(HostFailure, OfAnOtxExceptionThatNobodyTakesEndsTheRun) {
    beginLanes();
    host->reaction = [](const COtxValue&) { throw COtxException(OTX::Exceptions_e::OutOfBoundsException, "no"); };
    start();
    EXPECT_EQ(outcome(), "exception OutOfBoundsException: no");
    EXPECT_EQ(flows(), std::vector<int>{0}) << "the lane's flow is gone";
    expectThatTheNextRunWorks();
}

TEST_F(HostFailure, OfAnyOtherKindInALaneCancelsTheRun) {
    const std::size_t threads = threadCount();
    for (const auto& failure : {ReactingHost::Reaction([](const COtxValue&) { throw std::logic_error("no"); }),
                                ReactingHost::Reaction([](const COtxValue&) { throw 5; })}) {
        beginLanes();
        host->reaction = failure;
        start();
        EXPECT_EQ(outcome(), cancelled);
        EXPECT_EQ(global("g"), 0);
        EXPECT_EQ(global("y"), 0);
        EXPECT_EQ(flows(), std::vector<int>{0});
        expectThatTheNextRunWorks();
    }
    session.reset();
    EXPECT_TRUE(isThreadCountReached(threads));
}

TEST_F(HostFailure, OnTheThreadOfTheRunLeavesItAsItIs) {
    begin(procedure("main", set("a1", "g", 1) + set("a4", "y", 4)));
    setBreakpoints({"a1"});
    host->reaction = [](const COtxValue&) { throw std::logic_error("no"); };
    start();
    EXPECT_EQ(outcome(), "other no");
    EXPECT_NE(flowText(0).find(R"("state":"STOPPED")"), std::string::npos) << "it still counts as stopped";
    host->reaction = [](const COtxValue&) { throw 5; };
    start();
    EXPECT_THROW(outcome(), int);
    EXPECT_EQ(global("g"), 0);
    expectThatTheNextRunWorks();
}

TEST_F(HostFailure, OfAnOtxExceptionOnTheThreadOfTheRunMayBeCaught) {
    begin(procedure("main", handlerOf("ArithmeticException", "h1", set("a1", "x", 1), set("a3", "g", 3)) + set("a4", "y", 4)));
    setBreakpoints({"a1"});
    host->reaction = [](const COtxValue&) { throw COtxException(OTX::Exceptions_e::ArithmeticException, "no"); };
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 3);
    EXPECT_EQ(global("x"), 0);
    expectThatTheNextRunWorks();
}

TEST_F(HostFailure, OfAHostThatHasGoneCancelsTheRunOfALane) {
    beginLanes();
    setBreakpoints({"n1"});
    start();
    stopAt("n1");
    host.reset();
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("y"), 0);
}

TEST_F(HostFailure, OfAHostThatHasGoneFailsTheRunsOwnFlow) {
    begin(procedure("main", set("a1", "g", 1) + set("a2", "g", 2)));
    session->start("main", true);
    stopAt("a1");
    host.reset();
    EXPECT_EQ(control("step"), ok);
    EXPECT_EQ(outcome(), "failure Host not available.: ");
    EXPECT_EQ(global("g"), 1);
}

// --- blocking

TEST_F(HostFailure, ToReturnHoldsCommandsUpAndNothingElse) {
    beginLanes();
    std::promise<void> entered;
    std::promise<void> released;
    host->reaction = [&](const COtxValue&) {
        entered.set_value();
        released.get_future().wait();
    };
    start();
    entered.get_future().wait();
    auto status = std::async(std::launch::async, [this] { return control("status"); });
    auto cancelling = std::async(std::launch::async, [this] { return control("run"); });
    released.set_value();
    EXPECT_TRUE(status.get().starts_with(R"({"flows":[)"));
    const std::string answer = cancelling.get();
    EXPECT_EQ(answer, ok) << "the command came after the event, and the lane was stopped";
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("y"), 4);
}

// --- answering at once

TEST_F(HostFailure, IsNoneWhenTheHostAnswersAStopWithRunOnTheSameThread) {
    begin(procedure("main", parallel("n1", {loopOf("l1", "x", 50, doNothing("a1")), loopOf("l2", "y", 50, doNothing("a2"))}) +
                                set("a3", "g", 3)));
    setBreakpoints({"a1", "a2", "a3"});
    host->reaction = [this](const COtxValue& message) { EXPECT_EQ(control("run", flow(flowOf(message))), ok); };
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(host->count(), 101U);
}

TEST_F(HostFailure, IsNoneWhenTheHostAnswersAStopWithStepOnTheSameThread) {
    begin(procedure("main", parallel("n1", {loopOf("l1", "x", 10, doNothing("a1")), mutexGroup("m1", set("a2", "y", 1))}) +
                                set("a3", "g", 3)));
    host->reaction = [this](const COtxValue& message) { EXPECT_EQ(control("step", flow(flowOf(message))), ok); };
    session->start("main", true);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(host->count(), 15U) << "n1, l1, ten times a1, m1, a2, a3";
}

TEST_F(HostFailure, IsNoneWhenTheHostAnswersWithTheRunOfAnotherLane) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1), set("a2", "y", 1)})));
    setBreakpoints({"a1", "a2"});
    std::atomic<int> first{0};
    host->reaction = [&](const COtxValue& message) {
        int none = 0;
        // One call at a time: the event is sent under the lock of the commands.
        if (first.compare_exchange_strong(none, flowOf(message))) return;
        EXPECT_EQ(control("run", flow(first)), ok);
        EXPECT_EQ(control("run", flow(flowOf(message))), ok);
    };
    start();
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(HostFailure, IsNoneWhenAnotherThreadAnswersTheMomentThatItHears) {
    begin(procedure("main", parallel("n1", {loopOf("l1", "x", manyTimes, doNothing("a1")),
                                            loopOf("l2", "y", manyTimes, doNothing("a2"))})));
    setBreakpoints({"a1", "a2"});
    std::atomic<int> heard{0};
    std::atomic<bool> isLast{false};
    host->reaction = [&](const COtxValue&) { ++heard; };
    std::thread runner([&] {
        for (int answered = 0; !isLast;) {
            if (heard == answered) continue;
            ++answered;
            // Two stops may be heard of before the first is answered.
            const std::string answer = control("run");
            EXPECT_TRUE(answer == ok || answer == "failure No threads stopped") << answer;
        }
    });
    start();
    EXPECT_EQ(outcome(), "{}");
    isLast = true;
    runner.join();
    EXPECT_EQ(heard, 2 * manyTimes);
}

TEST_F(HostFailure, IsNoneWhenFlowsStopWhileTheStatusIsAskedFor) {
    begin(procedure("main", parallel("n1", {loopOf("l1", "x", manyTimes, doNothing("a1")),
                                            loopOf("l2", "y", manyTimes, doNothing("a2"))})));
    setBreakpoints({"a1", "a2"});
    host->reaction = [this](const COtxValue& message) { EXPECT_EQ(control("run", flow(flowOf(message))), ok); };
    start();
    while (!session->isOver()) EXPECT_TRUE(control("status").starts_with(R"({"flows":[)"));
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(host->count(), 2U * manyTimes);
}

}  // namespace
