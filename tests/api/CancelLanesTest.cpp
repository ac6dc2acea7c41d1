// Cancelling a run that has lanes.
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "ThreadCount.h"
#include "Values.h"
#include "WaitProbe.h"

#include <otx/value/COtxMap.h>

#include <string>

namespace {

using namespace api;

class CancelLanes : public FlowTest {
protected:
    void startWithProbe() { session->start("main", false, COtxMap(std::map<const std::string, COtxValue>{{"s", probeValue}})); }

    const COtxValue probeValue = WaitProbe::make();
    WaitProbe& probe = WaitProbe::behind(probeValue);
};

TEST_F(CancelLanes, EndsLanesThatTurn) {
    begin(procedure("main", parallel("n1", {forEver("l1", increment("a1", "x")), forEver("l2", increment("a2", "y"))}) +
                                set("a3", "g", 1)));
    session->start("main", true);
    stopAt("n1");
    EXPECT_EQ(control("run"), ok);
    waitForProgress("x");
    waitForProgress("y");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("g"), 0);
    EXPECT_EQ(flows(), std::vector<int>{0}) << "the flow of a run that failed stays";
}

TEST_F(CancelLanes, EndsLanesInEveryPlace) {
    begin(procedure("main",
                    parallel("n1", {forEver("l1", increment("a1", "x")), waitFor("w1", {"s"}),
                                    mutexGroup("m1", set("a2", "y", 1) + set("a3", "y", 2)),
                                    mutexGroup("m2", set("a4", "g", 1)), set("a5", "g", 5) + set("a6", "g", 6)}) +
                        set("a7", "g", 7),
                    source("inParam", "s")));
    setBreakpoints({"m2", "a2", "a5"});
    const std::size_t threads = threadCount();
    startWithProbe();
    const auto at = stops(3);
    EXPECT_EQ(control("run", flow(at.at("m2"))), ok);
    EXPECT_FALSE(isStopped(at.at("m2")));
    probe.awaitWaits(1);
    waitForProgress("x");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("y"), 1) << "the stopped lane runs its node and no other";
    EXPECT_EQ(global("g"), 5) << "the lane that waited for its section has run nothing in it";
    EXPECT_TRUE(isThreadCountReached(threads));
}

TEST_F(CancelLanes, EndsALaneThatWaitsForTheSectionOfItsOwnParent) {
    for (const bool isSecondRun : {false, true}) {
        begin(procedure("first", "") +
              procedure("main", mutexGroup("m1", parallel("n1", {mutexGroup("m2", set("a1", "g", 1)), set("a2", "x", 1)})) +
                                    set("a3", "y", 1)));
        if (isSecondRun) {
            session->start("first");
            EXPECT_EQ(outcome(), "{}");
        }
        setBreakpoints({"m2"});
        start();
        const int lane = stopAt("m2");
        EXPECT_EQ(control("run"), ok);
        waitForGlobal("x", 1);
        EXPECT_EQ(flowText(lane), R"({"id":)" + std::to_string(lane) + R"(,"state":"RUNNING"})");
        EXPECT_EQ(control("cancel"), isSecondRun ? noFirstFlow : ok);
        EXPECT_EQ(outcome(), cancelled);
        EXPECT_EQ(global("g") + global("y"), 0);
    }
}

TEST_F(CancelLanes, IsNotNarrowedToALane) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1) + set("a2", "x", 2), set("a3", "y", 1) + set("a4", "y", 2)}) +
                                set("a5", "g", 1)));
    setBreakpoints({"a1", "a3"});
    start();
    const auto at = stops(2);
    EXPECT_EQ(control("cancel", flow(at.at("a3"))), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("x") + global("y"), 2);
    EXPECT_EQ(global("g"), 0);
}

TEST_F(CancelLanes, InAParallelAtTheEndLetsTheRunFinish) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1) + set("a2", "x", 2), forEver("l1", "")})));
    setBreakpoints({"a1"});
    start();
    stopAt("a1");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), "{}") << "the parent meets no further checkpoint";
    EXPECT_EQ(global("x"), 1);
}

TEST_F(CancelLanes, AheadOfTheFirstNodeLetsThatNodeRun) {
    begin(procedure("main", set("a1", "g", 1) + set("a2", "g", 2)));
    session->start("main", true);
    stopAt("a1");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("g"), 1);
}

TEST_F(CancelLanes, AtAParallelCancelsTheLanesThatItStartsAfterwards) {
    begin(procedure(
        "main", parallel("n1", {set("a1", "x", 1), forEver("l1", increment("a2", "y")), waitForTerm("w1", timer(3600000))}) +
                    set("a3", "g", 1)));
    setBreakpoints({"n1"});
    start();
    stopAt("n1");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("x") + global("y") + global("g"), 0);
    EXPECT_EQ(host->count(), 1U);
}

TEST_F(CancelLanes, TakenBackByARunIsNoneForTheLanesThatBeginAfterwards) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1) + waitForTerm("w1", timer(0))}) + set("a2", "g", 1)));
    setBreakpoints({"n1"});
    host->reaction = [this](const COtxValue&) {
        EXPECT_EQ(control("cancel"), ok);
        EXPECT_EQ(control("run"), "failure No threads stopped") << "the flow goes on already, and its state is written";
    };
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x"), 1);
    EXPECT_EQ(global("g"), 1);
}

TEST_F(CancelLanes, HidesTheExceptionOfALane) {
    begin(procedure("main",
                    parallel("n1", {set("a1", "x", 1) + throwUser("t1", "q", "t"), forEver("l1", increment("a2", "y"))})));
    setBreakpoints({"a1"});
    start();
    const int thrower = stopAt("a1");
    EXPECT_EQ(control("run", flow(thrower)), ok);
    waitUntilGone(thrower);
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled) << "the parent rethrows the exception, and its flow is cancelled";
}

TEST_F(CancelLanes, LeavesNothingForTheHandlerAroundTheParallel) {
    for (const std::string& catchFlow : {set("a3", "g", 3), std::string()}) {
        begin(procedure(
            "main",
            handler("h1", parallel("n1", {set("a1", "x", 1) + throwUser("t1", "q", "t"), forEver("l1", increment("a2", "y"))}),
                    catchFlow)));
        setBreakpoints({"a1"});
        start();
        const int thrower = stopAt("a1");
        EXPECT_EQ(control("run", flow(thrower)), ok);
        waitUntilGone(thrower);
        EXPECT_EQ(control("cancel"), ok);
        EXPECT_EQ(outcome(), cancelled);
        EXPECT_EQ(global("g"), 0);
    }
}

TEST_F(CancelLanes, AfterAReturnEndsTheRunAtTheNextNodeOfTheCaller) {
    const auto withBehind = [](const std::string& behind) {
        return procedure("main", call("c1", "sub") + behind) +
               procedure("sub", parallel("n1", {set("a1", "x", 1) + returnNode("r1"), forEver("l1", increment("a2", "y"))}) +
                                    set("a3", "g", 3));
    };
    for (const auto& [behind, expected] :
         {std::pair{set("a4", "g", 4), cancelled}, std::pair{std::string(), std::string("{}")}}) {
        begin(withBehind(behind));
        setBreakpoints({"a1"});
        start();
        const int returning = stopAt("a1");
        EXPECT_EQ(control("run", flow(returning)), ok);
        waitUntilGone(returning);
        EXPECT_EQ(control("cancel"), ok);
        EXPECT_EQ(outcome(), expected);
        EXPECT_EQ(global("g"), 0);
    }
}

TEST_F(CancelLanes, OfASecondRunEndsItsLanesAllTheSame) {
    begin(procedure("first", "") +
          procedure("main", parallel("n1", {forEver("l1", increment("a1", "x")), set("a2", "y", 1) + set("a3", "y", 2)}) +
                                set("a4", "g", 1)));
    session->start("first");
    EXPECT_EQ(outcome(), "{}");
    setBreakpoints({"a2"});
    start();
    stopAt("a2");
    EXPECT_EQ(control("cancel"), noFirstFlow);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("y"), 1);
    EXPECT_EQ(global("g"), 0);
}

TEST_F(CancelLanes, IsForgottenByTheNextRun) {
    begin(procedure("turn", parallel("n1", {forEver("l1", increment("a1", "x")), forEver("l2", "")}) + set("a2", "g", 1)) +
          procedure("main", parallel("n2", {waitForTerm("w1", timer(1)) + set("a3", "g", 2), set("a4", "y", 3)}) +
                                waitForTerm("w2", timer(1))));
    session->start("turn", true);
    stopAt("n1");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 2);
    EXPECT_EQ(global("y"), 3);
    EXPECT_EQ(flows(), std::vector<int>{});
}

// --- a failure of the machinery in a lane

TEST_F(CancelLanes, ByAFailingLaneReachesLanesThatWaitAndTurn) {
    begin(procedure("main",
                    parallel("n1", {set("a1", "g", 1) + fail("f1"), waitFor("w1", {"s"}) + set("a2", "y", 1),
                                    forEver("l1", increment("a3", "x"))}) +
                        set("a4", "g", 4),
                    source("inParam", "s")));
    setBreakpoints({"a1"});
    startWithProbe();
    stopAt("a1");
    probe.awaitWaits(1);
    waitForProgress("x");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("g"), 1);
    EXPECT_EQ(global("y"), 0);
}

TEST_F(CancelLanes, ByAFailingLaneOfASecondRunLeavesAWaitToItsEvent) {
    begin(procedure("first", "") +
          procedure(
              "main",
              parallel("n1", {set("a1", "g", 1) + fail("f1"), waitFor("w1", {"s"}) + set("a2", "y", 1)}) + set("a3", "g", 3),
              source("inParam", "s")));
    session->start("first");
    EXPECT_EQ(outcome(), "{}");
    setBreakpoints({"a1"});
    startWithProbe();
    const int failing = stopAt("a1");
    probe.awaitWaits(1);
    EXPECT_EQ(control("run"), ok);
    waitUntilGone(failing);
    EXPECT_FALSE(session->isOver());
    probe.Signal();
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("y"), 0);
    EXPECT_EQ(global("g"), 1);
}

}  // namespace
