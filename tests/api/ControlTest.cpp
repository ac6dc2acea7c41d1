// The words of Control, their answers and their failures.
#include "BackgroundRun.h"
#include "Documents.h"
#include "StopHost.h"
#include "Values.h"

#include <otx/value/Functions.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using namespace api;

const std::string ok = R"("")";

class Control : public testing::Test {
protected:
    void SetUp() override {
        sequencer = load(document(procedure("main", set("a1", "g", 1) + set("a2", "g", 2) + set("a3", "g", 3)) +
                                      procedure("turn", forEver("l1", increment("a4", "g"))),
                                  integer("variable", "g", 0)));
        sequencer->SetHost(host);
    }

    std::string control(const std::string& command, const std::string& parameters = "{}") {
        return outcomeOfControl(*sequencer, command, parameters);
    }

    std::string nodeOfNextStop() {
        const COtxValue status = host->nextStop();
        return OTX::GetParameter(status, "node", OTX::ValueType::String).String();
    }

    std::shared_ptr<StopHost> host = std::make_shared<StopHost>();
    std::shared_ptr<velkotx::Sequencer> sequencer;
};

TEST_F(Control, RefusesWordsThatItDoesNotKnow) {
    for (const char* word : {"", "Stop", "STEP", "stop ", "pause", "statuses", "7"})
        EXPECT_EQ(control(word), std::string("failure Invalid sequence control command: ") + word);
}

TEST_F(Control, BeforeTheFirstRunHasNoFlow) {
    EXPECT_EQ(control("stop"), "failure No threads running");
    EXPECT_EQ(control("run"), "failure No threads stopped");
    EXPECT_EQ(control("step"), "failure No threads stopped");
    EXPECT_EQ(control("exception"), "failure No threads running");
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a1"]})"), ok);
    EXPECT_EQ(control("clearbp"), ok);
    EXPECT_EQ(control("status"), R"({"flows":[],"globalvars":{}})");
    EXPECT_EQ(control("cancel"), "failure Invalid thread id: 0");
    EXPECT_EQ(control("closees"), "failure Invalid thread id: 0");
    EXPECT_EQ(control("putes"), "failure Invalid thread id: 0");
}

TEST_F(Control, LooksTheFlowUpForEveryWord) {
    for (const char* word : {"stop", "run", "step", "setbp", "clearbp", "cancel", "status", "exception", "closees", "putes"})
        EXPECT_EQ(control(word, R"({"flowId":3,"breakpoints":[]})"), "failure Invalid thread id: 3") << word;
}

TEST_F(Control, TakesANegativeFlowForAllFlows) {
    BackgroundRun run(sequencer, "main", true);
    EXPECT_EQ(nodeOfNextStop(), "a1");
    EXPECT_EQ(control("step", R"({"flowId":-1})"), ok);
    EXPECT_EQ(nodeOfNextStop(), "a2");
    EXPECT_EQ(control("run", R"({"flowId":-7})"), ok);
    EXPECT_EQ(run.outcome(), "{}");
}

TEST_F(Control, TakesTheEmptyValueForNoParameters) {
    EXPECT_NO_THROW(sequencer->Control("status", COtxValue()));
}

TEST_F(Control, RefusesParametersOfAnotherType) {
    EXPECT_EQ(control("status", R"({"flowId":"0"})"), "value TypeMismatchException");
    EXPECT_EQ(control("exception", R"({"type":5})"), "value TypeMismatchException");
    EXPECT_EQ(control("exception", R"({"text":5})"), "value TypeMismatchException");
    EXPECT_EQ(control("setbp", R"({"breakpoints":"a1"})"), "value TypeMismatchException");
    EXPECT_EQ(control("setbp"), "value OutOfBoundsException") << "the list of breakpoints is required";
    EXPECT_EQ(control("status"), R"({"flows":[],"globalvars":{}})") << "a refused command leaves no lock behind";
}

// --- step and run

TEST_F(Control, StepsFromNodeToNode) {
    BackgroundRun run(sequencer, "main", true);
    EXPECT_EQ(nodeOfNextStop(), "a1");
    EXPECT_EQ(control("step"), ok);
    EXPECT_EQ(nodeOfNextStop(), "a2");
    EXPECT_EQ(control("step", R"({"flowId":0})"), ok);
    EXPECT_EQ(nodeOfNextStop(), "a3");
    EXPECT_EQ(control("step"), ok);
    EXPECT_EQ(run.outcome(), "{}");
}

TEST_F(Control, RunsOnFromAStop) {
    BackgroundRun run(sequencer, "main", true);
    EXPECT_EQ(nodeOfNextStop(), "a1");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(run.outcome(), "{}");
}

TEST_F(Control, AStoppedFlowHasNotYetRunItsNode) {
    BackgroundRun run(sequencer, "main", true);
    EXPECT_EQ(nodeOfNextStop(), "a1");
    EXPECT_TRUE(control("status").ends_with(R"("globalvars":{"g":0}})"));
    EXPECT_EQ(control("step"), ok);
    EXPECT_EQ(nodeOfNextStop(), "a2");
    EXPECT_TRUE(control("status").ends_with(R"("globalvars":{"g":1}})"));
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(run.outcome(), "{}");
    EXPECT_EQ(control("status"), R"({"flows":[],"globalvars":{"g":3}})");
}

TEST_F(Control, OfARunningFlowRefusesRunAndStep) {
    BackgroundRun run(sequencer, "turn", true);
    EXPECT_EQ(nodeOfNextStop(), "l1");
    EXPECT_EQ(control("run"), ok);
    run.waitUntilRunning(0);
    EXPECT_EQ(control("run"), "failure No threads stopped");
    EXPECT_EQ(control("run", R"({"flowId":0})"), "failure thread 0 running");
    EXPECT_EQ(control("step", R"({"flowId":0})"), "failure Thread 0 not stopped");
    EXPECT_EQ(nodeOfNextStop(), "a4") << "the refused step makes the flow stop all the same";
    EXPECT_EQ(control("run"), ok);
    run.waitUntilRunning(0);
    EXPECT_EQ(control("step"), "failure No threads stopped");
    EXPECT_EQ(nodeOfNextStop(), "a4");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
}

// --- stop

TEST_F(Control, StopsARunningFlowAtItsNextNode) {
    BackgroundRun run(sequencer, "turn", true);
    EXPECT_EQ(nodeOfNextStop(), "l1");
    EXPECT_EQ(control("run"), ok);
    run.waitUntilRunning(0);
    EXPECT_EQ(control("stop"), ok);
    EXPECT_EQ(nodeOfNextStop(), "a4");
    EXPECT_EQ(control("stop"), "failure No threads running");
    EXPECT_EQ(control("stop", R"({"flowId":0})"), "failure Thread 0 not running");
    EXPECT_EQ(control("run"), ok);
    run.waitUntilRunning(0);
    EXPECT_EQ(control("stop", R"({"flowId":0})"), ok);
    EXPECT_EQ(nodeOfNextStop(), "a4");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
}

TEST_F(Control, StopsAnEmptyLoop) {
    sequencer = load(document(procedure("main", forEver("l1", "") + set("a1", "g", 1)), integer("variable", "g", 0)));
    sequencer->SetHost(host);
    BackgroundRun run(sequencer, "main", true);
    EXPECT_EQ(nodeOfNextStop(), "l1");
    EXPECT_EQ(control("run"), ok);
    run.waitUntilRunning(0);
    EXPECT_EQ(control("stop"), ok);
    EXPECT_EQ(nodeOfNextStop(), "l1") << "the loop is still the current node";
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
}

// --- breakpoints

TEST_F(Control, StopsAtABreakpoint) {
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a3","a2"]})"), ok);
    BackgroundRun run(sequencer, "main", false);
    EXPECT_EQ(nodeOfNextStop(), "a2");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(nodeOfNextStop(), "a3");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(run.outcome(), "{}");
}

TEST_F(Control, StopsAtABreakpointEachTime) {
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a4"]})"), ok);
    BackgroundRun run(sequencer, "turn", false);
    for (const char* passes : {"0", "1", "2"}) {
        EXPECT_EQ(nodeOfNextStop(), "a4");
        EXPECT_TRUE(control("status").ends_with(std::string(R"("globalvars":{"g":)") + passes + "}}"));
        EXPECT_EQ(control("run"), ok);
    }
    EXPECT_EQ(nodeOfNextStop(), "a4");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
}

TEST_F(Control, KeepsBreakpointsFromRunToRun) {
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a2"]})"), ok);
    for (int round = 0; round < 2; ++round) {
        BackgroundRun run(sequencer, "main", false);
        EXPECT_EQ(nodeOfNextStop(), "a2");
        EXPECT_EQ(control("run"), ok);
        EXPECT_EQ(run.outcome(), "{}");
    }
}

TEST_F(Control, AddsBreakpointsToThoseThatAreThere) {
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a1"]})"), ok);
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a3"]})"), ok);
    BackgroundRun run(sequencer, "main", false);
    EXPECT_EQ(nodeOfNextStop(), "a1");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(nodeOfNextStop(), "a3");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(run.outcome(), "{}");
}

TEST_F(Control, AcceptsABreakpointWhereNoNodeIs) {
    EXPECT_EQ(control("setbp", R"({"breakpoints":["nowhere"]})"), ok);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
}

TEST_F(Control, TakesBreakpointsByIdAndNotByName) {
    sequencer = load(document(procedure("main", set("a1\" name=\"first", "g", 1)), integer("variable", "g", 0)));
    sequencer->SetHost(host);
    EXPECT_EQ(control("setbp", R"({"breakpoints":["first"]})"), ok);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
}

TEST_F(Control, ClearsGivenBreakpoints) {
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a1","a2","a3"]})"), ok);
    EXPECT_EQ(control("clearbp", R"({"breakpoints":["a1","a3","nowhere"]})"), ok);
    BackgroundRun run(sequencer, "main", false);
    EXPECT_EQ(nodeOfNextStop(), "a2");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(run.outcome(), "{}");
}

TEST_F(Control, ClearsAllBreakpointsWithoutAList) {
    for (const char* none : {"{}", R"({"breakpoints":[]})"}) {
        EXPECT_EQ(control("setbp", R"({"breakpoints":["a1","a2"]})"), ok);
        EXPECT_EQ(control("clearbp", none), ok);
        EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "{}");
    }
}

TEST_F(Control, SetsABreakpointDuringARun) {
    BackgroundRun run(sequencer, "turn", true);
    EXPECT_EQ(nodeOfNextStop(), "l1");
    EXPECT_EQ(control("run"), ok);
    run.waitUntilRunning(0);
    EXPECT_EQ(control("setbp", R"({"breakpoints":["a4"]})"), ok);
    EXPECT_EQ(nodeOfNextStop(), "a4");
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(run.outcome(), "failure cancelled: ");
}

TEST_F(Control, RepeatsTheBreakpointOfAnEmptyFlow) {
    sequencer = load(document(procedure("main", "<group id=\"g1\"><realisation/></group>" + set("a1", "g", 1)),
                              integer("variable", "g", 0)));
    sequencer->SetHost(host);
    EXPECT_EQ(control("setbp", R"({"breakpoints":["g1"]})"), ok);
    BackgroundRun run(sequencer, "main", false);
    EXPECT_EQ(nodeOfNextStop(), "g1");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(nodeOfNextStop(), "g1") << "the empty flow tests the node that is still current";
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(run.outcome(), "{}");
}

}  // namespace
