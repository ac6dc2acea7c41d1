// Putting an exception into the flows of lanes.
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "Values.h"

#include <string>

namespace {

using namespace api;

const std::string injected = R"("type":"T","text":"x"})";

std::string into(int flowId) { return R"({"flowId":)" + std::to_string(flowId) + ',' + injected; }

class InjectionLanes : public FlowTest {};

TEST_F(InjectionLanes, ForOneLaneLeavesTheParallelWhenTheOtherHasEnded) {
    begin(procedure("main", parallel("n1", {forEver("l1", increment("a1", "x")), set("a2", "y", 1) + set("a3", "y", 2)}) +
                                set("a4", "g", 1)));
    setBreakpoints({"a2"});
    start();
    const int stopped = stopAt("a2");
    const int turning = otherFlow({stopped});
    EXPECT_EQ(control("exception", into(turning)), ok);
    waitUntilGone(turning);
    EXPECT_FALSE(session->isOver());
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "exception UserException: x");
    EXPECT_EQ(global("y"), 2);
    EXPECT_EQ(global("g"), 0);
}

TEST_F(InjectionLanes, ForOneLaneMayBeCaughtAroundTheParallelAndReachesNobodyElse) {
    begin(procedure("main",
                    handler("h1", parallel("n1", {forEver("l1", increment("a1", "x")), set("a2", "y", 1) + set("a3", "y", 2)}),
                            set("a4", "g", 4)) +
                        increment("a5", "g")));
    setBreakpoints({"a2"});
    start();
    const int stopped = stopAt("a2");
    const int turning = otherFlow({stopped});
    EXPECT_EQ(control("exception", into(turning)), ok);
    waitUntilGone(turning);
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 5);
}

TEST_F(InjectionLanes, ForAllFlowsReachesTheParentInTheCatch) {
    begin(procedure("main",
                    handler("h1", parallel("n1", {forEver("l1", increment("a1", "x")), forEver("l2", increment("a2", "y"))}),
                            set("a3", "g", 3) + set("a4", "g", 4))));
    session->start("main", true);
    stopAt("h1");
    EXPECT_EQ(control("run"), ok);
    waitForProgress("x");
    waitForProgress("y");
    EXPECT_EQ(control("exception", "{" + injected), ok);
    EXPECT_EQ(outcome(), "exception UserException: x");
    EXPECT_EQ(global("g"), 0) << "the first node of the catch has thrown the parent's own";
}

TEST_F(InjectionLanes, IsRefusedByAStoppedLane) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1)}) + set("a2", "g", 1)));
    setBreakpoints({"a1"});
    start();
    const int lane = stopAt("a1");
    EXPECT_EQ(control("exception", into(lane)), "failure Thread " + std::to_string(lane) + " not running");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(InjectionLanes, IsLostOnTheStoppedLaneAmongRunningOnes) {
    begin(procedure("main", parallel("n1", {set("a1", "g", 1) + set("a2", "g", 2), forEver("l1", increment("a3", "x"))})));
    setBreakpoints({"a1"});
    start();
    const int stopped = stopAt("a1");
    const int turning = otherFlow({stopped});
    EXPECT_EQ(control("exception", "{" + injected), ok);
    waitUntilGone(turning);
    EXPECT_EQ(control("run", flow(stopped)), ok);
    EXPECT_EQ(outcome(), "exception UserException: x");
    EXPECT_EQ(global("g"), 2);
}

TEST_F(InjectionLanes, IsThrownOnceAndLeavesTheFlowRunning) {
    begin(procedure("main",
                    parallel("n1", {handler("h1", forEver("l1", increment("a1", "x")), set("a2", "g", 2) + set("a3", "g", 3)) +
                                    set("a4", "y", 4)})));
    setBreakpoints({"a3"});
    session->start("main", true);
    stopAt("n1");
    EXPECT_EQ(control("run"), ok);
    waitForProgress("x");
    EXPECT_EQ(control("exception", into(otherFlow({}))), ok);
    stopAt("a3");
    EXPECT_EQ(global("g"), 2);
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("y"), 4);
}

TEST_F(InjectionLanes, ForTheParentIsThrownBehindTheParallel) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1) + set("a2", "x", 2)}) + set("a3", "g", 3)));
    setBreakpoints({"a1"});
    start();
    const int lane = stopAt("a1");
    EXPECT_EQ(control("exception", into(0)), ok);
    EXPECT_EQ(control("run", flow(lane)), ok);
    EXPECT_EQ(outcome(), "exception UserException: x");
    EXPECT_EQ(global("x"), 2);
    EXPECT_EQ(global("g"), 0);
}

TEST_F(InjectionLanes, ThatWaitsForTheParentIsNotForItsLanes) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1) + set("a2", "x", 2)}) + set("a3", "g", 3)));
    setBreakpoints({"n1"});
    host->reaction = [this](const COtxValue&) {
        // On the flow's own thread: it runs the node at which it stands with the exception pending.
        EXPECT_EQ(control("run"), ok);
        EXPECT_EQ(control("exception", "{" + injected), ok);
    };
    start();
    EXPECT_EQ(outcome(), "exception UserException: x");
    EXPECT_EQ(global("x"), 2);
    EXPECT_EQ(global("g"), 0);
}

}  // namespace
