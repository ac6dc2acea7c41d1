// Stopping, running and stepping the flows of lanes.
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "Values.h"

#include <otx/value/Functions.h>

#include <map>
#include <set>
#include <string>
#include <thread>

namespace {

using namespace api;

class LaneControl : public FlowTest {
protected:
    // One lane turns and counts x, the other one stops at a2, with a3 behind it.
    void beginTurningAndStopped() {
        begin(procedure("main", parallel("n1", {forEver("l1", increment("a1", "x")), set("a2", "g", 1) + set("a3", "g", 2)}) +
                                    doNothing("a9")));
        setBreakpoints({"a2"});
        start();
        stopped = stopAt("a2");
        turning = otherFlow({stopped});
        waitForProgress("x");
    }

    // Two lanes that stop at a1 and a2, with nodes behind them, and a node behind the Parallel.
    void beginTwoStopped() {
        begin(
            procedure("main", parallel("n1", {set("a1", "x", 1) + set("a1b", "x", 2), set("a2", "y", 1) + set("a2b", "y", 2)}) +
                                  set("a3", "g", 1)));
        setBreakpoints({"a1", "a2"});
        start();
        at = stops(2);
    }

    int stopped = 0;
    int turning = 0;
    std::map<std::string, int> at;
};

// --- stop

TEST_F(LaneControl, StopOfAStoppedLaneLeavesTheOthersAlone) {
    beginTurningAndStopped();
    EXPECT_EQ(control("stop", flow(stopped)), "failure Thread " + std::to_string(stopped) + " not running");
    waitForProgress("x");
    EXPECT_FALSE(isStopped(turning));
}

TEST_F(LaneControl, StopOfOneLaneStopsThatOneOnly) {
    beginTurningAndStopped();
    EXPECT_EQ(control("stop", flow(turning)), ok);
    EXPECT_EQ(stopAt("a1"), turning);
    EXPECT_FALSE(isStopped(0)) << "the parent is in the Parallel, where it meets no checkpoint";
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(host->count(), 2U);
}

TEST_F(LaneControl, StopCountsTheParentInItsParallelAsRunning) {
    beginTwoStopped();
    EXPECT_EQ(control("stop"), ok);
    EXPECT_EQ(control("run", flow(at["a1"])), ok);
    EXPECT_EQ(control("run", flow(at["a2"])), ok);
    EXPECT_EQ(stopAt("a3"), 0) << "the first checkpoint that the parent meets stands behind the Parallel";
    EXPECT_EQ(global("x") + global("y"), 4);
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(LaneControl, StopOfTheParentTakesEffectBehindTheParallel) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1) + set("a2", "x", 2)}) + set("a3", "g", 1)));
    setBreakpoints({"a1"});
    start();
    const int lane = stopAt("a1");
    EXPECT_EQ(control("stop", flow(0)), ok);
    EXPECT_EQ(control("run", flow(lane)), ok);
    EXPECT_EQ(stopAt("a3"), 0);
    EXPECT_EQ(global("x"), 2);
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(LaneControl, StopsAtAFlowOfDisabledNodesWithTheNodeBeforeIt) {
    begin(procedure(
        "main", group("g1", set("a1\" disabled=\"true", "g", 1) + set("a2\" disabled=\"true", "g", 2)) + set("a3", "x", 1)));
    session->start("main", true);
    stopAt("g1");
    EXPECT_EQ(control("step"), ok);
    stopAt("g1");
    EXPECT_EQ(control("step"), ok);
    stopAt("a3");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 0);
}

TEST_F(LaneControl, StopsALaneInAnEmptyLoop) {
    begin(procedure("main", parallel("n1", {forEver("l1", "")}) + doNothing("a9")));
    setBreakpoints({"l1"});
    start();
    const int lane = stopAt("l1");
    EXPECT_EQ(control("clearbp"), ok);
    EXPECT_EQ(control("run"), ok);
    EXPECT_FALSE(isStopped(lane));
    EXPECT_EQ(control("stop", flow(lane)), ok);
    EXPECT_EQ(stopAt("l1"), lane);
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
}

TEST_F(LaneControl, StopsAnEmptyLaneWithoutANode) {
    begin(procedure("main", parallel("n1", {""}), "", integer("variable", "v", 5)));
    session->start("main", true);
    stopAt("n1");
    EXPECT_EQ(control("step"), ok);
    EXPECT_EQ(json(host->nextStop()), R"({"id":1,"stack":["main"],"state":"STOPPED","vars":{"v":5}})");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
}

// --- run and step

TEST_F(LaneControl, RefusesToStepARunningLane) {
    begin(procedure("main", parallel("n1", {forEver("l1", increment("a1", "x")), forEver("l2", increment("a2", "y"))})));
    setBreakpoints({"l1"});
    start();
    const int lane = stopAt("l1");
    EXPECT_EQ(control("run"), ok);
    EXPECT_FALSE(isStopped(lane));
    EXPECT_EQ(control("step", flow(lane)), "failure Thread " + std::to_string(lane) + " not stopped");
    EXPECT_EQ(stopAt("a1"), lane) << "the refused step makes the lane stop all the same";
    EXPECT_EQ(control("run"), ok);
    EXPECT_FALSE(isStopped(lane));
    EXPECT_EQ(control("step"), "failure No threads stopped");
    EXPECT_EQ(stops(2).size(), 2U);
}

TEST_F(LaneControl, RunsOneLaneOfTwo) {
    beginTwoStopped();
    EXPECT_EQ(control("run", flow(at["a2"])), ok);
    waitUntilGone(at["a2"]);
    EXPECT_TRUE(isStopped(at["a1"]));
    EXPECT_EQ(global("x"), 0);
    EXPECT_EQ(global("y"), 2);
    EXPECT_EQ(control("run", flow(at["a1"])), ok);
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(LaneControl, RunsAllThatAreStopped) {
    beginTwoStopped();
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x") + global("y"), 4);
}

TEST_F(LaneControl, StepWithoutAFlowMarksTheRunningLanesToo) {
    beginTurningAndStopped();
    EXPECT_EQ(control("step"), ok);
    const auto next = stops(2);
    EXPECT_EQ(next.at("a3"), stopped);
    EXPECT_EQ(next.at("a1"), turning);
}

TEST_F(LaneControl, StepOfOneLaneLeavesTheOthersRunning) {
    beginTurningAndStopped();
    EXPECT_EQ(control("step", flow(stopped)), ok);
    EXPECT_EQ(stopAt("a3"), stopped);
    EXPECT_EQ(global("g"), 1);
    waitForProgress("x");
    EXPECT_FALSE(isStopped(turning));
}

TEST_F(LaneControl, LanesOfAParentThatRunsRunAsWell) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1), set("a2", "y", 1)})));
    setBreakpoints({"n1"});
    start();
    stopAt("n1");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(host->count(), 1U);
}

TEST_F(LaneControl, LanesOfAParentThatStepsStopAtTheirFirstNodes) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1) + set("a1b", "x", 2), set("a2", "y", 1)}) + set("a3", "g", 1)));
    session->start("main", true);
    stopAt("n1");
    EXPECT_EQ(control("step"), ok);
    at = stops(2);
    EXPECT_EQ(control("run", flow(at.at("a1"))), ok);
    EXPECT_EQ(control("run", flow(at.at("a2"))), ok);
    EXPECT_EQ(stopAt("a3"), 0) << "the parent still steps";
    EXPECT_EQ(global("x") + global("y"), 3);
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(LaneControl, StepsThroughEveryNodeOfEveryLane) {
    begin(procedure("main", set("a1", "g", 1) +
                                parallel("n1", {set("b1", "x", 1) +
                                                    parallel("n2", {set("c1", "x", 2), mutexGroup("m1", set("d1", "x", 3))}) +
                                                    set("b2", "x", 4),
                                                mutexGroup("m2", set("e1", "y", 1)) + set("e2", "y", 2)}) +
                                parallel("n3", {set("f1", "y", 3) + terminateLanes("t1")}) + set("a2", "g", 2)));
    session->start("main", true);
    std::map<int, std::string> nodes;
    for (int stop = 0; stop < 15; ++stop) {
        const COtxValue status = host->nextStop();
        const auto id = static_cast<int>(OTX::GetParameter(status, "id", OTX::ValueType::Integer).Int());
        nodes[id] += OTX::GetParameter(status, "node", OTX::ValueType::String).String() + ' ';
        EXPECT_EQ(control("step", flow(id)), ok);
    }
    EXPECT_EQ(outcome(), "{}");
    std::multiset<std::string> paths;
    for (const auto& [id, path] : nodes) paths.insert(path);
    EXPECT_EQ(paths, (std::multiset<std::string>{"a1 n1 n3 a2 ", "b1 n2 b2 ", "c1 ", "f1 t1 ", "m1 d1 ", "m2 e1 e2 "}));
}

// --- breakpoints

TEST_F(LaneControl, ABreakpointHoldsForEveryFlow) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1) + call("c1", "sub"), set("a2", "y", 1) + call("c2", "sub")})) +
          procedure("sub", set("s1", "g", 1)));
    setBreakpoints({"a1", "a2"});
    start();
    at = stops(2);
    EXPECT_EQ(control("setbp", R"({"breakpoints":["s1"],"flowId":)" + std::to_string(at["a1"]) + "}"), ok)
        << "the flow is only looked up";
    EXPECT_EQ(control("run", flow(at["a2"])), ok);
    EXPECT_EQ(stopAt("s1"), at["a2"]);
    EXPECT_EQ(control("run", flow(at["a1"])), ok);
    EXPECT_EQ(stopAt("s1"), at["a1"]);
    EXPECT_EQ(control("clearbp", R"({"breakpoints":["nowhere"]})"), ok);
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(LaneControl, ABreakpointStopsATurningLaneAheadOfItsNode) {
    begin(procedure("main", parallel("n1", {forEver("l1", increment("a1", "x") + copyInteger("a2", "y", "x"))})));
    session->start("main", true);
    stopAt("n1");
    EXPECT_EQ(control("run"), ok);
    waitForProgress("x");
    setBreakpoints({"a2"});
    for (int pass = 0; pass < 3; ++pass) {
        stopAt("a2");
        EXPECT_EQ(global("y"), global("x") - 1) << "the node at which the lane stopped hasn't run";
        EXPECT_EQ(control("run"), ok);
    }
}

TEST_F(LaneControl, AStopInAMutexGroupKeepsTheOthersOut) {
    begin(procedure("main", parallel("n1", {mutexGroup("m1", set("a1", "x", 1) + set("a1b", "x", 2)) + set("a1c", "x", 3),
                                            mutexGroup("m2", copyInteger("a2", "g", "x"))})));
    setBreakpoints({"a1", "m2", "a1c"});
    start();
    at = stops(2);
    EXPECT_EQ(control("run", flow(at.at("m2"))), ok);
    EXPECT_FALSE(isStopped(at["m2"]));
    EXPECT_EQ(control("run", flow(at.at("a1"))), ok);
    EXPECT_EQ(stopAt("a1c"), at["a1"]);
    waitUntilGone(at["m2"]);
    EXPECT_EQ(global("g"), 2) << "the other lane has entered behind the first one, and before that one's end";
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(LaneControl, ARefusedListOfBreakpointsSetsNone) {
    begin(procedure("main", set("a1", "g", 1)));
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a1",5]})"), "value TypeMismatchException");
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(host->count(), 0U);
}

TEST_F(LaneControl, TakesCommandsFromTwoThreadsAtOnce) {
    begin(procedure("main", set("a1", "g", 1)));
    std::string first;
    std::thread other([&] { first = control("status"); });
    const std::string second = control("status");
    other.join();
    EXPECT_EQ(first, R"({"flows":[],"globalvars":{}})");
    EXPECT_EQ(second, first);
}

}  // namespace
