// A flow in a wait: what the commands of run control and the events of its sources do to it.
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "Values.h"
#include "WaitProbe.h"

#include <otx/value/COtxInt.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>

#include <stdexcept>
#include <string>

namespace {

using namespace api;

class Wait : public FlowTest {
protected:
    // Runs main with a source of the test as its argument s, until a flow waits on it.
    void startWaiting() {
        session->start("main", false, arguments);
        probe.awaitWaits(1);
    }

    const COtxValue probeValue = WaitProbe::make();
    WaitProbe& probe = WaitProbe::behind(probeValue);
    const COtxValue arguments = COtxMap(std::map<const std::string, COtxValue>{{"s", probeValue}});
    const std::string sourceParameter = source("inParam", "s");
};

// --- stop and breakpoints

TEST_F(Wait, IsNotEndedByAStop) {
    begin(procedure("main", waitFor("w1", {"s"}) + set("a1", "g", 1), sourceParameter));
    startWaiting();
    EXPECT_EQ(control("stop"), ok);
    EXPECT_EQ(host->count(), 0U);
    probe.Signal();
    EXPECT_EQ(stopAt("a1"), 0) << "the flow stops behind the wait";
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(Wait, ReachesTheBreakpointBehindItWithTheEvent) {
    begin(procedure("main", waitFor("w1", {"s"}, "e") + set("a1", "g", 1), sourceParameter + source("outParam", "e")));
    setBreakpoints({"a1"});
    startWaiting();
    EXPECT_EQ(host->count(), 0U);
    probe.Put(COtxInt(5));
    stopAt("a1");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), R"json({"e":{"Event":"MonitorChange(5)"}})json");
}

TEST_F(Wait, ShowsItsTypeWhenTheFlowStopsAtIt) {
    begin(procedure("main", waitForTerm("w1", timer(0))));
    session->start("main", true);
    EXPECT_EQ(json(host->nextStop()), R"({"id":0,"node":"w1","stack":["main"],"state":"STOPPED",)"
                                      R"("type":"class Event::WaitForEvent_impl<class Event::WaitForEvent_base>","vars":{}})");
}

TEST_F(Wait, TakesBackAStopWhenItIsToldToRun) {
    begin(procedure("main", parallel("n1", {waitFor("w1", {"s"}) + set("a1", "x", 1), set("a2", "y", 1)}), sourceParameter));
    setBreakpoints({"a2"});
    startWaiting();
    const int stopped = stopAt("a2");
    const int waiting = otherFlow({stopped});
    EXPECT_EQ(control("stop", flow(waiting)), ok);
    EXPECT_EQ(control("run", flow(waiting)), "failure thread " + std::to_string(waiting) + " running");
    EXPECT_EQ(control("stop", flow(waiting)), ok);
    EXPECT_EQ(control("run"), ok) << "another lane was stopped";
    probe.Signal();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(host->count(), 1U);
}

// --- exception

TEST_F(Wait, HoldsAnInjectedExceptionUntilItIsOver) {
    begin(procedure("main", waitFor("w1", {"s"}, "e") + set("a1", "g", 1), sourceParameter + source("outParam", "e")));
    startWaiting();
    EXPECT_EQ(control("exception", R"({"type":"T","text":"x"})"), ok);
    probe.Signal();
    EXPECT_EQ(outcome(), "exception UserException: x");
    EXPECT_EQ(global("g"), 0);
}

TEST_F(Wait, LosesAnInjectedExceptionToARun) {
    begin(procedure("main", waitFor("w1", {"s"}) + set("a1", "g", 1), sourceParameter));
    startWaiting();
    EXPECT_EQ(control("exception"), ok);
    EXPECT_EQ(control("run", flow(0)), "failure thread 0 running");
    probe.Signal();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 1);
}

// --- cancel

TEST_F(Wait, EndsSoonAfterACancel) {
    begin(procedure("main", waitFor("w1", {"s"}) + set("a1", "g", 1), sourceParameter));
    startWaiting();
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("g"), 0);
}

TEST_F(Wait, CancelledRunsNoCatchAndNoFinally) {
    begin(procedure("main",
                    handlerOf("InvalidReferenceException", "h1", waitFor("w1", {"s"}) + set("a1", "g", 1), set("a2", "g", 2),
                              set("a3", "x", 3)),
                    sourceParameter));
    startWaiting();
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("g"), 0);
    EXPECT_EQ(global("x"), 0);
}

TEST_F(Wait, ThatBeginsAfterACancelThrowsAtOnce) {
    for (const std::string& node : {waitFor("w1", {"s"}), waitForTerm("w1", timer(3600000)), waitForTerm("w1", monitor("x")),
                                    waitForTerm("w1", timer(-1))}) {
        begin(procedure("main", node + set("a1", "g", 1), sourceParameter));
        session->start("main", true, arguments);
        stopAt("w1");
        EXPECT_EQ(control("cancel"), ok);
        EXPECT_EQ(outcome(), cancelled);
        EXPECT_EQ(global("g"), 0);
    }
}

TEST_F(Wait, ThatBeginsAfterACancelCanBeCaughtAndEndsAsCancelled) {
    begin(procedure("main", handlerOf("InvalidReferenceException", "h1", waitForTerm("w1", timer(-1)), set("a2", "g", 2))));
    setBreakpoints({"w1"});
    start();
    stopAt("w1");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("g"), 0);
}

// --- a second run, which has no flow 0

TEST_F(Wait, OfASecondRunOutlivesACancelUntilItsEvent) {
    begin(procedure("main", waitFor("w1", {"s"}) + set("a1", "g", 1), sourceParameter) + procedure("first", ""));
    session->start("first");
    EXPECT_EQ(outcome(), "{}");
    startWaiting();
    EXPECT_EQ(control("cancel"), noFirstFlow);
    EXPECT_FALSE(session->isOver());
    probe.Put(COtxInt(1));
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("g"), 0);
}

TEST_F(Wait, OfASecondRunThatBeginsAfterTheCancelThrowsAtOnce) {
    begin(procedure("main", waitForTerm("w1", monitor("x")) + set("a1", "g", 1)) + procedure("first", ""));
    session->start("first");
    EXPECT_EQ(outcome(), "{}");
    session->start("main", true);
    stopAt("w1");
    EXPECT_EQ(control("cancel"), noFirstFlow);
    EXPECT_EQ(outcome(), cancelled);
}

TEST_F(Wait, OfASecondRunIsReachedByNeitherClosingNorPutting) {
    begin(procedure("main", waitFor("w1", {"s"}, "e"), sourceParameter + source("outParam", "e")) + procedure("first", ""));
    session->start("first");
    EXPECT_EQ(outcome(), "{}");
    startWaiting();
    EXPECT_EQ(control("closees"), noFirstFlow);
    EXPECT_EQ(control("putes", R"({"value":7})"), noFirstFlow);
    probe.Put(COtxInt(1));
    EXPECT_EQ(outcome(), R"json({"e":{"Event":"MonitorChange(1)"}})json");
}

TEST_F(Wait, WorksInTheRunAfterACancelledOne) {
    begin(procedure("main",
                    waitForTerm("w1", timer(1)) + makeMonitor("a1", "m", "x") + set("a2", "x", 4) + waitFor("w2", {"m"}, "e") +
                        waitFor("w3", {"s"}),
                    sourceParameter + source("outParam", "e"), source("variable", "m")));
    startWaiting();
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    // The first source has been closed with the run that it belonged to.
    const COtxValue fresh = WaitProbe::make();
    session->start("main", false, COtxMap(std::map<const std::string, COtxValue>{{"s", fresh}}));
    WaitProbe::behind(fresh).awaitWaits(1);
    EXPECT_EQ(flows(), std::vector<int>{0}) << "the flow is the one that the cancelled run has left behind";
    WaitProbe::behind(fresh).Signal();
    EXPECT_EQ(outcome(), R"json({"e":{"Event":"MonitorChange(x, 4)"}})json");
}

TEST_F(Wait, DoesNotHoldUpEventsOfTheHost) {
    begin(procedure("main", waitFor("w1", {"s"}), sourceParameter));
    startWaiting();
    EXPECT_THROW(session->sequencer().SendEvent(value(R"({"eventType":"Foo"})")), std::runtime_error);
    probe.Signal();
    EXPECT_EQ(outcome(), "{}");
}

}  // namespace
