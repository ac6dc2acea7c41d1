// Cancelling a run, and putting an exception into it.
#include "BackgroundRun.h"
#include "Documents.h"
#include "StopHost.h"
#include "Values.h"

#include <otx/value/Functions.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

namespace {

using namespace api;

const std::string ok = R"("")";

class Steering : public testing::Test {
protected:
    void begin(const std::string& procedures) {
        sequencer = load(document(procedures, integer("variable", "g", 0)));
        sequencer->SetHost(host);
    }

    std::string control(const std::string& command, const std::string& parameters = "{}") {
        return outcomeOfControl(*sequencer, command, parameters);
    }

    std::string global() { return json(OTX::GetParameter(sequencer->Control("status", COtxValue()), "globalvars", OTX::ValueType::Map)); }

    std::shared_ptr<StopHost> host = std::make_shared<StopHost>();
    std::shared_ptr<velkotx::Sequencer> sequencer;
};

class Cancel : public Steering {};

TEST_F(Cancel, AtABreakpointTakesEffectBehindTheNode) {
    begin(procedure("main", set("a1", "g", 1) + set("a2", "g", 2) + set("a3", "g", 3)));
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a2"]})"), ok);
    BackgroundRun run(sequencer, "main", false);
    host->nextStop();
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
    EXPECT_EQ(global(), R"({"g":2})") << "the node at which the flow stood still runs, the next one doesn't";
}

TEST_F(Cancel, AtTheLastNodeLetsTheRunFinish) {
    begin(procedure("main", set("a1", "g", 1)));
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "{}") << "there is no further node at which the flow could notice";
    EXPECT_EQ(global(), R"({"g":1})");
}

TEST_F(Cancel, EndsALoopThatDoesNothing) {
    begin(procedure("main", forEver("l1", "")));
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("run"), ok);
    run.waitUntilRunning(0);
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
}

TEST_F(Cancel, EndsALoopOfDisabledNodes) {
    begin(procedure("main", forEver("l1", set("a1\" disabled=\"true", "g", 1))));
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("run"), ok);
    run.waitUntilRunning(0);
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
    EXPECT_EQ(global(), R"({"g":0})");
}

TEST_F(Cancel, RunsNoCatchAndNoFinally) {
    begin(procedure("main", handler("h1", set("a1", "g", 1) + set("a2", "g", 2), set("a3", "g", 3), set("a4", "g", 4))));
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a1"]})"), ok);
    BackgroundRun run(sequencer, "main", false);
    host->nextStop();
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
    EXPECT_EQ(global(), R"({"g":1})");
}

TEST_F(Cancel, OfAStoppedNodeThatThrowsIsReportedAsCancelled) {
    begin(procedure("main", throwUser("t1", "q", "t")));
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "failure cancelled: ") << "a cancelled flow ends as cancelled, whatever ends it";
}

TEST_F(Cancel, IsNotNarrowedToAFlow) {
    begin(procedure("main", set("a1", "g", 1) + set("a2", "g", 2)));
    BackgroundRun first(sequencer, "main", true);
    host->nextStop();
    BackgroundRun second(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("cancel", R"({"flowId":1})"), ok);
    EXPECT_EQ(first.outcome(), "failure cancelled: ");
    EXPECT_EQ(second.outcome(), "failure cancelled: ");
}

TEST_F(Cancel, OfASecondRunFailsAndCancelsAllTheSame) {
    begin(procedure("main", set("a1", "g", 1) + set("a2", "g", 2)));
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("cancel"), "failure Invalid thread id: 0");
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
    EXPECT_EQ(global(), R"({"g":1})");
}

TEST_F(Cancel, AfterAnExceptionOnTheSameThreadFindsTheFirstFlow) {
    begin(procedure("fail", throwUser("t1", "q", "t")) + procedure("main", set("a1", "g", 1) + set("a2", "g", 2)));
    std::string outcome;
    std::thread runner([&] {
        outcomeOfRun(*sequencer, "fail");
        outcome = outcomeOfRun(*sequencer, "main", COtxValue(), true);
    });
    host->nextStop();
    EXPECT_EQ(control("cancel"), ok);
    runner.join();
    EXPECT_EQ(outcome, "failure cancelled: ");
}

TEST_F(Cancel, MayBeSaidTwice) {
    begin(procedure("main", forEver("l1", "")));
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("run"), ok);
    run.waitUntilRunning(0);
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(control("cancel"), ok) << "flow 0 stays registered after a cancelled run";
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
    EXPECT_EQ(control("cancel"), ok);
}

// --- events of the run

TEST_F(Cancel, ClosesNoEventSourcesWithoutTheFirstFlow) {
    begin(procedure("main", set("a1", "g", 1)));
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("closees"), "failure Invalid thread id: 0");
    EXPECT_EQ(control("putes", R"({"value":1,"param":2})"), "failure Invalid thread id: 0");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(run.outcome(), "{}");
}

TEST_F(Cancel, AnswersTheWordsForEventSources) {
    begin(procedure("main", set("a1", "g", 1)));
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("closees"), ok);
    EXPECT_EQ(control("putes"), ok);
    EXPECT_EQ(control("putes", R"({"value":1,"param":"x"})"), ok);
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(run.outcome(), "{}");
}

// --- exceptions

class Injection : public Steering {
protected:
    // Turns in a loop until an exception comes, and then hands its qualifier and text out.
    void beginLoop() {
        const std::string string = "<realisation><dataType xsi:type=\"String\"><init value=\"-\"/></dataType></realisation>";
        const auto assign = [](const std::string& id, const std::string& target, const std::string& term) {
            return "<action id=\"" + id + "\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"StringVariable\" name=\"" +
                   target + "\"/><term xsi:type=\"" + term +
                   "\"><exception xsi:type=\"ExceptionValue\" valueOf=\"e\"/></term></realisation></action>";
        };
        begin(procedure("main",
                        "<handler id=\"h1\"><realisation><try>" + forEver("l1", increment("a1", "g")) +
                            "</try><catch><exception id=\"e1\"><realisation><type xsi:type=\"UserException\"/><handle name=\"e\"/>"
                            "</realisation></exception><flow>" +
                            assign("a2", "q", "GetExceptionQualifier") + assign("a3", "t", "GetExceptionText") +
                            "</flow></catch></realisation></handler>",
                        "<outParam id=\"d1\" name=\"q\">" + string + "</outParam><outParam id=\"d2\" name=\"t\">" + string + "</outParam>",
                        "<variable id=\"d3\" name=\"e\"><realisation><dataType xsi:type=\"Exception\"/></realisation></variable>"));
    }

    void letRun(BackgroundRun& run) {
        host->nextStop();
        EXPECT_EQ(control("run"), ok);
        run.waitUntilRunning(0);
    }
};

TEST_F(Injection, ReachesTheHandler) {
    beginLoop();
    BackgroundRun run(sequencer, "main", true);
    letRun(run);
    EXPECT_EQ(control("exception", R"({"type":"BatteryLow","text":"11 V"})"), ok);
    EXPECT_EQ(run.outcome(), R"({"q":"BatteryLow","t":"11 V"})") << "once: the nodes behind it run freely";
}

TEST_F(Injection, HasDefaults) {
    beginLoop();
    BackgroundRun run(sequencer, "main", true);
    letRun(run);
    EXPECT_EQ(control("exception"), ok);
    EXPECT_EQ(run.outcome(), R"({"q":"UserException","t":""})");
}

TEST_F(Injection, MayBeMeantForOneFlow) {
    beginLoop();
    BackgroundRun run(sequencer, "main", true);
    letRun(run);
    EXPECT_EQ(control("exception", R"({"flowId":0,"text":"x"})"), ok);
    EXPECT_EQ(run.outcome(), R"({"q":"UserException","t":"x"})");
}

TEST_F(Injection, WithoutAHandlerEndsTheRun) {
    begin(procedure("main", forEver("l1", "")));
    BackgroundRun run(sequencer, "main", true);
    letRun(run);
    EXPECT_EQ(control("exception", R"({"type":"BatteryLow","text":"11 V"})"), ok);
    EXPECT_EQ(run.outcome(), "exception UserException: 11 V");
}

TEST_F(Injection, IsRefusedByAStoppedFlow) {
    begin(procedure("main", set("a1", "g", 1) + set("a2", "g", 2)));
    BackgroundRun run(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("exception"), "failure No threads running");
    EXPECT_EQ(control("exception", R"({"flowId":0})"), "failure Thread 0 not running");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(run.outcome(), "{}") << "what wakes the flow overwrites the exception";
    EXPECT_EQ(global(), R"({"g":2})");
}

TEST_F(Injection, IsLostOnAStoppedFlowAmongRunningOnes) {
    begin(procedure("main", set("a1", "g", 1) + set("a2", "g", 2)) + procedure("turn", forEver("l1", "")));
    BackgroundRun turning(sequencer, "turn", true);
    letRun(turning);
    BackgroundRun stopped(sequencer, "main", true);
    host->nextStop();
    EXPECT_EQ(control("exception", R"({"text":"x"})"), ok);
    EXPECT_EQ(turning.outcome(), "exception UserException: x");
    EXPECT_EQ(control("step", R"({"flowId":1})"), ok);
    host->nextStop();
    EXPECT_EQ(control("run", R"({"flowId":1})"), ok);
    EXPECT_EQ(stopped.outcome(), "{}");
}

}  // namespace
