// How lanes end, and which end the parent sees.
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "ThreadCount.h"
#include "Values.h"
#include "WaitProbe.h"

#include <otx/value/COtxInt.h>
#include <otx/value/COtxMap.h>

#include <string>
#include <utility>

namespace {

using namespace api;

class Lanes : public FlowTest {
protected:
    void startWithProbe() { session->start("main", false, COtxMap(std::map<const std::string, COtxValue>{{"s", probeValue}})); }

    // Lets the lanes at these nodes run to their ends, one after the other.
    void endInOrder(const std::string& first, const std::string& second) {
        const auto at = stops(2);
        EXPECT_EQ(control("run", flow(at.at(first))), ok);
        waitUntilGone(at.at(first));
        EXPECT_EQ(control("run", flow(at.at(second))), ok);
    }

    const COtxValue probeValue = WaitProbe::make();
    WaitProbe& probe = WaitProbe::behind(probeValue);
    const std::string parameters = source("inParam", "s") + source("outParam", "e");
};

TEST_F(Lanes, OfTwoThatThrowTheFirstIsSeen) {
    for (const auto& [first, second] : {std::pair{"t1", "t2"}, std::pair{"t2", "t1"}}) {
        begin(procedure("main", parallel("n1", {throwUser("t1", "q", "of t1"), throwUser("t2", "q", "of t2")})));
        setBreakpoints({"t1", "t2"});
        start();
        endInOrder(first, second);
        EXPECT_EQ(outcome(), std::string("exception UserException: of ") + first);
    }
}

TEST_F(Lanes, AThrowCountsMoreThanAReturn) {
    for (const auto& [first, second] : {std::pair{"t1", "r1"}, std::pair{"r1", "t1"}}) {
        begin(procedure("main", parallel("n1", {throwUser("t1", "q", "x"), returnNode("r1")}) + set("a1", "g", 1)));
        setBreakpoints({"t1", "r1"});
        start();
        endInOrder(first, second);
        EXPECT_EQ(outcome(), "exception UserException: x");
        EXPECT_EQ(global("g"), 0);
    }
}

TEST_F(Lanes, ATerminatedLaneEndsItsWaitOnlyWithTheEvent) {
    begin(procedure("main",
                    parallel("n1", {terminateLanes("t1"), waitFor("w1", {"s"}, "e") + set("a1", "g", 1)}) + set("a2", "y", 2),
                    parameters));
    setBreakpoints({"t1", "a1"});
    startWithProbe();
    const int terminating = stopAt("t1");
    probe.awaitWaits(1);
    const int waiting = otherFlow({terminating});
    EXPECT_EQ(control("run", flow(terminating)), ok);
    waitUntilGone(terminating);
    EXPECT_EQ(flowText(waiting), R"({"id":)" + std::to_string(waiting) + R"(,"state":"RUNNING"})");
    probe.Put(COtxInt(5));
    EXPECT_EQ(outcome(), R"json({"e":{"Event":"MonitorChange(5)"}})json");
    EXPECT_EQ(global("g"), 0);
    EXPECT_EQ(global("y"), 2) << "the Parallel has ended without an exception";
    EXPECT_EQ(host->count(), 1U) << "the cancelled state counts more than the breakpoint";
}

TEST_F(Lanes, ARunOfAStoppedLaneTakesItsTerminationBack) {
    begin(procedure("main", parallel("n1", {terminateLanes("t1"), set("b1", "x", 1) + set("b2", "x", 2)}) + set("a1", "y", 1)));
    setBreakpoints({"t1", "b1"});
    start();
    endInOrder("t1", "b1");
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x"), 2);
    EXPECT_EQ(global("y"), 1);
}

TEST_F(Lanes, ACancelOfAStoppedTerminatedLaneEndsItBehindItsNode) {
    begin(procedure("main", parallel("n1", {terminateLanes("t1"), set("b1", "x", 1) + set("b2", "x", 2)}) + set("a1", "y", 1)));
    setBreakpoints({"t1", "b1"});
    start();
    const auto at = stops(2);
    EXPECT_EQ(control("run", flow(at.at("t1"))), ok);
    waitUntilGone(at.at("t1"));
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("x"), 1);
    EXPECT_EQ(global("y"), 0);
}

TEST_F(Lanes, ATerminatedLaneStillWaitsForItsMutexGroup) {
    begin(procedure("main", parallel("n1", {terminateLanes("t1"), mutexGroup("m1", set("b1", "g", 1)),
                                            mutexGroup("m2", set("c1", "x", 1) + set("c2", "x", 2))}) +
                                set("a1", "y", 1)));
    setBreakpoints({"t1", "m1", "c1"});
    start();
    const auto at = stops(3);
    EXPECT_EQ(control("run", flow(at.at("m1"))), ok);
    EXPECT_FALSE(isStopped(at.at("m1")));
    EXPECT_EQ(control("run", flow(at.at("t1"))), ok);
    waitUntilGone(at.at("t1"));
    EXPECT_FALSE(isStopped(at.at("m1"))) << "it waits outside of the group";
    EXPECT_EQ(control("run", flow(at.at("c1"))), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x"), 2);
    EXPECT_EQ(global("g"), 0) << "it ends at the first node in the group";
    EXPECT_EQ(global("y"), 1);
}

TEST_F(Lanes, TerminationDoesNotReachTheLanesOfALane) {
    begin(procedure("main", parallel("n1", {terminateLanes("t1"),
                                            parallel("n2", {set("c1", "x", 1) + set("c2", "x", 2)}) + set("b1", "g", 1)}) +
                                set("a1", "y", 1)));
    setBreakpoints({"t1", "c1"});
    start();
    const auto at = stops(2);
    EXPECT_EQ(control("run", flow(at.at("t1"))), ok);
    waitUntilGone(at.at("t1"));
    EXPECT_EQ(flows().size(), 3U);
    EXPECT_EQ(control("step", flow(at.at("c1"))), ok);
    EXPECT_EQ(stopAt("c2"), at.at("c1")) << "the inner lane isn't cancelled";
    EXPECT_EQ(control("run", flow(at.at("c1"))), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x"), 2);
    EXPECT_EQ(global("g"), 0) << "the lane around it is";
    EXPECT_EQ(global("y"), 1);
}

TEST_F(Lanes, ThatFailAllAtOnceCancelTheRun) {
    const std::size_t threads = threadCount();
    for (int round = 0; round < 50; ++round) {
        begin(procedure("main", parallel("n1", {fail("f1"), fail("f2"), fail("f3"), fail("f4")}) + set("a1", "y", 1)));
        start();
        EXPECT_EQ(outcome(), cancelled);
        EXPECT_EQ(flows(), std::vector<int>{0});
        session.reset();
        ASSERT_TRUE(isThreadCountReached(threads));
    }
}

TEST_F(Lanes, AllRunAtTheSameTimeHoweverMany) {
    constexpr int count = 200;
    std::string makers;
    std::string variables;
    Texts lanes;
    // Each lane waits for what the next one writes; the last one waits for nothing.
    for (int number = 0; number < count; ++number) {
        const std::string own = std::to_string(number);
        const std::string next = std::to_string(number + 1);
        variables += integer("variable", "v" + own, 0) + source("variable", "s" + own);
        makers += makeMonitor("m" + own, "s" + own, "v" + own);
        lanes.push_back((number + 1 < count ? waitFor("w" + own, {"s" + next}) : std::string()) + set("a" + own, "v" + own, 1));
    }
    begin(procedure("main", makers + parallel("n1", lanes) + set("a", "g", 1), "", variables));
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 1);
}

TEST_F(Lanes, CountInOneVariableWithAMutexGroup) {
    constexpr int count = 5000;
    begin(procedure("main", parallel("n1", {loopOf("l1", "x", count, mutexGroup("m1", increment("a1", "g"))),
                                            loopOf("l2", "y", count, mutexGroup("m2", increment("a2", "g")))})));
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 2 * count);
}

TEST_F(Lanes, WriteOneVariableThatAnotherReads) {
    constexpr int count = 5000;
    begin(procedure("main",
                    parallel("n1", {loopOf("l1", "x", count, set("a1", "g", 1)), loopOf("l2", "y", count, set("a2", "g", 2)),
                                    loopOf("l3", "z", count, copyInteger("a3", "copy", "g"))}),
                    "", integer("variable", "z", 0)),
          integer("variable", "copy", 0));
    start();
    while (!session->isOver()) {
        const std::string text = control("status");
        const auto place = text.find(R"("copy":)");
        if (place != std::string::npos) {
            EXPECT_TRUE(text[place + 7] >= '0' && text[place + 7] <= '2' && text[place + 8] == ',') << text;
        }
    }
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(Lanes, OfASequencerThatIsDroppedAtOnceLeaveNoThread) {
    const std::size_t threads = threadCount();
    for (int round = 0; round < 50; ++round) {
        begin(procedure("main", parallel("n1", {set("a1", "x", 1), set("a2", "y", 1), set("a3", "g", 1)})));
        start();
        EXPECT_EQ(outcome(), "{}");
        session.reset();
    }
    EXPECT_TRUE(isThreadCountReached(threads));
}

}  // namespace
