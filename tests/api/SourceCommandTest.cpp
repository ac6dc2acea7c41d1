// The commands that close and feed all event sources of a run.
#include "BackgroundRun.h"
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "Until.h"
#include "Values.h"
#include "WaitProbe.h"

#include <otx/event/COtxEventSource.h>
#include <otx/event/COtxMonitorChangeEventSource.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>

#include <map>
#include <memory>
#include <string>

namespace {

using namespace api;

const std::string closed = "exception InvalidReferenceException: EventSource has been closed";

class SourceCommand : public FlowTest {
protected:
    static COtxValue argumentsWith(const COtxValue& source) {
        return COtxMap(std::map<const std::string, COtxValue>{{"s", source}});
    }

    // Runs main with a source of the test as its argument s, until a flow waits on it.
    void startWaiting() {
        session->start("main", false, argumentsWith(probeValue));
        probe.awaitWaits(1);
    }

    // A wait for the test's source as s that hands out the event and what is asked of it.
    void beginAsking() {
        begin(procedure("main",
                        waitFor("w1", {"s"}, "e") + testEvent("a1", "any", "IsMonitorChangeEvent", "e") +
                            testEvent("a2", "ofX", "IsMonitorChangeEvent", "e", "x") +
                            testEvent("a3", "t", "IsTimerExpiredEvent", "e"),
                        sourceParameter + source("outParam", "e") + boolean("any") + boolean("ofX") + boolean("t")));
    }

    static std::string boolean(const std::string& name) { return declared("outParam", name, "Boolean\">"); }

    const COtxValue probeValue = WaitProbe::make();
    WaitProbe& probe = WaitProbe::behind(probeValue);
    const std::string sourceParameter = source("inParam", "s");
};

// --- closees

TEST_F(SourceCommand, ClosingEndsAWait) {
    begin(procedure("main", waitFor("w1", {"s"}) + set("a1", "g", 1), sourceParameter));
    startWaiting();
    EXPECT_EQ(control("closees"), ok);
    EXPECT_EQ(outcome(), closed);
    EXPECT_EQ(global("g"), 0);
}

TEST_F(SourceCommand, ClosingMayBeCaughtAndTheRunGoesOn) {
    begin(procedure("main",
                    handlerOf("InvalidReferenceException", "h1", waitFor("w1", {"s"}) + set("a1", "g", 1), set("a2", "x", 2),
                              set("a3", "y", 3)) +
                        set("a4", "g", 4),
                    sourceParameter));
    startWaiting();
    EXPECT_EQ(control("closees"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x"), 2);
    EXPECT_EQ(global("y"), 3);
    EXPECT_EQ(global("g"), 4);
}

TEST_F(SourceCommand, ClosingEndsTheWaitsOfAllLanes) {
    const auto lane = [](const std::string& number, const std::string& wait) {
        return handlerOf("InvalidReferenceException", "h" + number, wait,
                         mutexGroup("m" + number, increment("i" + number, "g")));
    };
    begin(procedure("main",
                    makeMonitor("a1", "m", "x") + makeMonitor("a2", "n", "x") + makeTimer("a3", "t", 3600000) +
                        parallel("n1", {lane("1", waitFor("w1", {"m"})), lane("2", waitFor("w2", {"n", "t"})),
                                        lane("3", waitFor("w3", {"t"})), lane("4", waitFor("w4", {"s"}))}),
                    sourceParameter, source("variable", "m") + source("variable", "n") + source("variable", "t")));
    setBreakpoints({"w1", "w2", "w3"});
    session->start("main", false, argumentsWith(probeValue));
    stops(3);
    probe.awaitWaits(1);
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(control("closees"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 4);
}

TEST_F(SourceCommand, ClosingReachesASourceThatALaneHasMade) {
    begin(procedure("main",
                    parallel("n1", {makeMonitor("a1", "m", "x"), set("a2", "g", 1) + waitFor("w1", {"m"})}) + set("a3", "g", 2),
                    "", source("variable", "m")));
    setBreakpoints({"a2"});
    start();
    const int waiting = stopAt("a2");
    waitUntil("end of the other lane", [&] { return flows().size() == 2; });
    EXPECT_EQ(control("step", flow(waiting)), ok);
    stopAt("w1");
    EXPECT_EQ(control("closees"), ok);
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), closed);
    EXPECT_EQ(global("g"), 1);
}

TEST_F(SourceCommand, AfterAClosingNewSourcesWork) {
    begin(procedure("main",
                    handlerOf("InvalidReferenceException", "h1", waitFor("w1", {"s"}), makeMonitor("a1", "s", "x")) +
                        set("a2", "x", 1) + waitFor("w2", {"s"}, "e") + waitForTerm("w3", timer(1)),
                    sourceParameter + source("outParam", "e")));
    startWaiting();
    EXPECT_EQ(control("closees"), ok);
    EXPECT_EQ(outcome(), R"json({"e":{"Event":"MonitorChange(x, 1)"}})json");
}

// --- putes

TEST_F(SourceCommand, PuttingEndsAWaitWithTheNameAndTheValue) {
    beginAsking();
    startWaiting();
    EXPECT_EQ(control("putes", R"({"value":5,"param":"x"})"), ok);
    EXPECT_EQ(outcome(), R"json({"any":true,"e":{"Event":"MonitorChange(x, 5)"},"ofX":true,"t":false})json");
}

TEST_F(SourceCommand, PuttingNothingGivesAnEventWithoutNameAndValue) {
    beginAsking();
    startWaiting();
    EXPECT_EQ(control("putes"), ok);
    EXPECT_EQ(outcome(), R"json({"any":true,"e":{"Event":"MonitorChange"},"ofX":false,"t":false})json");
}

TEST_F(SourceCommand, PuttingTakesANameFromAStringOnly) {
    for (const char* name : {"5", "null", "[\"x\"]", "{\"x\":1}", "true"}) {
        beginAsking();
        const COtxValue fresh = WaitProbe::make();
        session->start("main", false, argumentsWith(fresh));
        WaitProbe::behind(fresh).awaitWaits(1);
        EXPECT_EQ(control("putes", std::string(R"({"value":"v","param":)") + name + "}"), ok);
        EXPECT_EQ(outcome(), R"json({"any":true,"e":{"Event":"MonitorChange(v)"},"ofX":false,"t":false})json") << name;
    }
}

TEST_F(SourceCommand, PuttingEndsTheWaitForATimerOnce) {
    begin(procedure("main",
                    makeTimer("a1", "t", 3600000) + waitFor("w1", {"t"}, "e") +
                        testEvent("a2", "b", "IsTimerExpiredEvent", "e") + waitFor("w2", {"t"}),
                    source("outParam", "e") + declared("outParam", "b", "Boolean\">"), source("variable", "t")));
    setBreakpoints({"w1", "a2", "w2"});
    start();
    stopAt("w1");
    EXPECT_EQ(control("putes", R"({"value":1})"), ok);
    EXPECT_EQ(control("run"), ok);
    stopAt("a2");
    EXPECT_EQ(control("run"), ok);
    const std::string text = json(host->nextStop());
    EXPECT_NE(text.find(R"json("b":true)json"), std::string::npos) << text;
    EXPECT_EQ(control("run"), ok);
    EXPECT_FALSE(isStopped(0));
    EXPECT_FALSE(session->isOver());
    EXPECT_EQ(control("closees"), ok);
    EXPECT_EQ(outcome(), closed) << "the second wait has found no event";
}

TEST_F(SourceCommand, PuttingReachesEveryOpenSourceAlsoWhenNobodyWaits) {
    begin(procedure(
        "main",
        makeMonitor("a1", "m", "x") + makeMonitor("a2", "n", "y") + makeMonitor("a3", "k", "y") +
            "<action id=\"a4\"><realisation xmlns:e=\"http://iso.org/OTX/1.0.0/Event\" xsi:type=\"e:CloseEventSource\">"
            "<e:source name=\"k\"/></realisation></action>" +
            waitFor("w1", {"m"}, "e") + waitFor("w2", {"n"}, "f") + waitFor("w3", {"k"}),
        source("outParam", "e") + source("outParam", "f"),
        source("variable", "m") + source("variable", "n") + source("variable", "k")));
    setBreakpoints({"w1", "w3"});
    start();
    stopAt("w1");
    EXPECT_EQ(control("putes", R"({"value":5})"), ok);
    EXPECT_EQ(control("run"), ok);
    const std::string text = json(host->nextStop());
    EXPECT_NE(text.find(R"json("e":{"Event":"MonitorChange(5)"},"f":{"Event":"MonitorChange(5)"})json"), std::string::npos)
        << text;
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), closed);
}

TEST_F(SourceCommand, PuttingWakesEachWaitingLaneOnce) {
    begin(procedure("main",
                    parallel("n1", {waitFor("w1", {"s"}) + set("a1", "x", 1) + waitFor("w2", {"s"}) + set("a2", "x", 2),
                                    waitFor("w3", {"r"}) + set("a3", "y", 1)}),
                    sourceParameter + source("inParam", "r")));
    const COtxValue other = WaitProbe::make();
    session->start("main", false, COtxMap(std::map<const std::string, COtxValue>{{"s", probeValue}, {"r", other}}));
    probe.awaitWaits(1);
    WaitProbe::behind(other).awaitWaits(1);
    EXPECT_EQ(control("putes"), ok);
    probe.awaitWaits(2);
    waitForGlobal("y", 1);
    waitUntil("end of the other lane", [&] { return flows().size() == 2; });
    EXPECT_EQ(global("x"), 1);
    EXPECT_EQ(control("putes"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x"), 2);
}

// --- which sources are those of a run

TEST_F(SourceCommand, TwoRunsOnTwoThreadsAreApart) {
    const std::string waiting = procedure("main", waitFor("w1", {"s"}, "e"), sourceParameter + source("outParam", "e"));
    begin(waiting);
    startWaiting();
    Session other(document(waiting), host);
    const COtxValue otherSource = WaitProbe::make();
    other.start("main", false, argumentsWith(otherSource));
    WaitProbe::behind(otherSource).awaitWaits(1);
    EXPECT_EQ(control("putes", R"({"value":1})"), ok);
    EXPECT_EQ(outcome(), R"json({"e":{"Event":"MonitorChange(1)"}})json");
    EXPECT_EQ(control("closees"), noFirstFlow) << "the run is over";
    EXPECT_FALSE(other.isOver());
    WaitProbe::behind(otherSource).Signal();
    EXPECT_EQ(other.outcome(), R"json({"e":{"Event":"MonitorChange"}})json") << "nothing of what was put came here";
}

TEST_F(SourceCommand, ClosingOrCancellingOneRunLeavesTheOtherWaiting) {
    const std::string waiting =
        procedure("main", waitFor("w1", {"s"}, "e") + doNothing("a1"), sourceParameter + source("outParam", "e"));
    for (const char* word : {"closees", "cancel"}) {
        begin(waiting);
        const COtxValue source = WaitProbe::make();
        session->start("main", false, argumentsWith(source));
        WaitProbe::behind(source).awaitWaits(1);
        Session other(document(waiting), host);
        const COtxValue otherSource = WaitProbe::make();
        other.start("main", false, argumentsWith(otherSource));
        WaitProbe::behind(otherSource).awaitWaits(1);
        EXPECT_EQ(control(word), ok);
        EXPECT_EQ(outcome(), std::string(word) == "cancel" ? cancelled : closed);
        EXPECT_EQ(other.control("putes", R"({"value":2})"), ok);
        EXPECT_EQ(other.outcome(), R"json({"e":{"Event":"MonitorChange(2)"}})json");
    }
}

// A list that the host gives is the one that the sequence appends to.
TEST_F(SourceCommand, CancellingClosesWhatNobodyWaitsForToo) {
    begin(procedure("main", appendMonitor("a1", "l", "x") + waitFor("w1", {"s"}) + doNothing("a2"),
                    sourceParameter + listOf("inParam", "l")));
    const COtxList kept;
    session->start("main", false, COtxMap(std::map<const std::string, COtxValue>{{"s", probeValue}, {"l", kept}}));
    probe.awaitWaits(1);
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    ASSERT_EQ(kept.List().size(), 1U);
    EXPECT_TRUE(COtxEventSource::IsClosed(kept.List().front()));
}

TEST_F(SourceCommand, ReachesTheSourcesOfANewSequencerOnTheThreadOfACancelledOne) {
    const std::string waiting = document(procedure("main", waitFor("w1", {"s"}) + doNothing("a1"), sourceParameter));
    const auto thread = std::make_shared<WorkThread>();
    for (const char* word : {"cancel", "closees", "cancel", "closees"}) {
        const COtxValue fresh = WaitProbe::make();
        Session next(thread, waiting, host);
        next.start("main", false, argumentsWith(fresh));
        WaitProbe::behind(fresh).awaitWaits(1);
        EXPECT_EQ(next.control(word), ok);
        EXPECT_EQ(next.outcome(), std::string(word) == "cancel" ? cancelled : closed);
    }
}

TEST_F(SourceCommand, CancellingClosesASourceThatNobodyWaitsFor) {
    const auto thread = std::make_shared<WorkThread>();
    Session other(thread, document(procedure("main", doNothing("a1") + doNothing("a2"))), host);
    COtxValue source;
    thread->post([&] {
        source = COtxMonitorChangeEventSource();
        return std::string();
    }).get();
    source.EventSource().Put(COtxString("kept"));
    other.start("main", true);
    stopAt("a1");
    EXPECT_EQ(other.control("cancel"), ok);
    COtxValue event;
    EXPECT_FALSE(source.EventSource().Wait(event));
    EXPECT_EQ(other.outcome(), cancelled);
}

TEST_F(SourceCommand, OfARunOnAnotherThreadThanTheSequencersReachesItsLanesToo) {
    const auto sequencer = load(document(
        procedure("main", parallel("n1", {waitFor("w1", {"s"}) + set("a1", "g", 1)}) + waitFor("w2", {"s"}), sourceParameter),
        integer("variable", "g", 0)));
    sequencer->SetHost(host);
    const COtxValue ofThisThread = COtxMonitorChangeEventSource();
    WorkThread thread;
    auto run = thread.post([&] { return outcomeOfRun(*sequencer, "main", argumentsWith(probeValue)); });
    probe.awaitWaits(1);
    EXPECT_EQ(outcomeOfControl(*sequencer, "putes"), ok);
    probe.awaitWaits(2);
    EXPECT_EQ(outcomeOfControl(*sequencer, "closees"), ok);
    EXPECT_EQ(run.get(), closed);
    EXPECT_TRUE(outcomeOfControl(*sequencer, "status").ends_with(R"("globalvars":{"g":1}})"));
    ofThisThread.EventSource().Put(COtxString("own"));
    COtxValue event;
    ASSERT_TRUE(ofThisThread.EventSource().Wait(event)) << "what the thread of the sequencer has made isn't the run's";
    EXPECT_EQ(event.Event().Value().String(), "own") << "nor has anything been put into it";
}

}  // namespace
