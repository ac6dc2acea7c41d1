// Runs on one sequencer: their host, their flows, and what they share.
#include "BackgroundRun.h"
#include "Documents.h"
#include "StopHost.h"
#include "Values.h"

#include <otx/value/COtxException.h>
#include <otx/value/Functions.h>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace api;

const std::string counting = document(
    procedure("main", increment("a1", "g") + "<action id=\"a2\"><realisation xsi:type=\"Assignment\"><result "
              "xsi:type=\"IntegerVariable\" name=\"o\"/><term xsi:type=\"IntegerValue\" valueOf=\"g\"/></realisation></action>",
              integer("outParam", "o", 0)) +
        procedure("fail", throwUser("t1", "q", "t")),
    integer("variable", "g", 10));

class Run : public testing::Test {
protected:
    void begin(const std::string& text) {
        sequencer = load(text);
        sequencer->SetHost(host);
    }

    std::shared_ptr<StopHost> host = std::make_shared<StopHost>();
    std::shared_ptr<velkotx::Sequencer> sequencer;
};

TEST_F(Run, TwiceKeepsTheGlobals) {
    begin(counting);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":11})");
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":12})");
}

TEST_F(Run, OfAnotherSequencerHasGlobalsOfItsOwn) {
    begin(counting);
    const auto other = load(counting);
    other->SetHost(host);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":11})");
    EXPECT_EQ(outcomeOfRun(*other, "main"), R"({"o":11})");
}

TEST_F(Run, AfterAnExceptionWorks) {
    begin(counting);
    EXPECT_EQ(outcomeOfRun(*sequencer, "fail"), "exception UserException: t");
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":11})");
    EXPECT_EQ(outcomeOfRun(*sequencer, "fail"), "exception UserException: t");
}

TEST_F(Run, OnAnotherThreadAfterAnExceptionWorks) {
    begin(counting);
    EXPECT_EQ(outcomeOfRun(*sequencer, "fail"), "exception UserException: t");
    EXPECT_EQ(BackgroundRun(sequencer, "main", false).outcome(), R"({"o":11})");
}

TEST_F(Run, WithoutAHostFailsAtItsEnd) {
    sequencer = load(counting);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "failure HMI not initialised: ");
    EXPECT_EQ(json(sequencer->Control("status", COtxValue())),
              R"({"flows":[{"id":0,"state":"RUNNING"}],"globalvars":{"g":11}})");
    EXPECT_EQ(outcomeOfRun(*sequencer, "fail"), "exception UserException: t");
    sequencer->SetHost(host);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":12})") << "the first run has done its work";
}

TEST_F(Run, KeepsNoHostAlive) {
    begin(counting);
    const std::weak_ptr<StopHost> watched = host;
    host.reset();
    EXPECT_TRUE(watched.expired());
}

TEST_F(Run, WhoseHostHasGoneFinishes) {
    begin(counting);
    host.reset();
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":11})");
}

TEST_F(Run, WhoseHostHasGoneCannotStop) {
    begin(counting);
    host.reset();
    EXPECT_EQ(outcomeOfRun(*sequencer, "main", COtxValue(), true), "failure Host not available.: ");
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":11})");
}

TEST_F(Run, WithoutAHostCannotStop) {
    sequencer = load(counting);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main", COtxValue(), true), "failure Host not available.: ");
}

class RefusingHost : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue&) override { throw std::runtime_error("not now"); }
};

TEST_F(Run, PassesOnWhatTheHostThrows) {
    begin(counting);
    const auto refusing = std::make_shared<RefusingHost>();
    sequencer->SetHost(refusing);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main", COtxValue(), true), "other not now");
    sequencer->SetHost(host);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":11})");
}

class ExceptionHost : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue&) override { throw COtxException("q", "from the host"); }
};

TEST_F(Run, TakesAnExceptionOfTheHostAsOneOfTheSequence) {
    begin(counting);
    const auto throwing = std::make_shared<ExceptionHost>();
    sequencer->SetHost(throwing);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main", COtxValue(), true), "exception UserException: from the host");
}

// Runs another sequencer on the thread of the stopped flow.
class NestingHost : public velkotx::HostEventSink {
public:
    NestingHost(velkotx::Sequencer& inner, StopHost& stops) : inner_(inner), stops_(stops) {}

    void sendRequest(const COtxValue& message) override {
        outcomes.push_back(outcomeOfRun(inner_, outcomes.empty() ? "main" : "fail"));
        stops_.sendRequest(message);
    }

    std::vector<std::string> outcomes;

private:
    velkotx::Sequencer& inner_;
    StopHost& stops_;
};

TEST_F(Run, MayTakePlaceInsideTheCallbackOfAnotherOne) {
    begin(counting);
    const auto inner = load(counting);
    inner->SetHost(host);
    const auto nesting = std::make_shared<NestingHost>(*inner, *host);
    sequencer->SetHost(nesting);
    BackgroundRun run(sequencer, "main", true);
    for (int stop = 0; stop < 2; ++stop) {
        host->nextStop();
        sequencer->Control("step", COtxValue());
    }
    EXPECT_EQ(run.outcome(), R"({"o":11})");
    EXPECT_EQ(nesting->outcomes, (std::vector<std::string>{R"({"o":11})", "exception UserException: t"}));
}

TEST_F(Run, TakesTheEmptyValueForNoArguments) {
    begin(counting);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main", COtxValue()), R"({"o":11})");
    EXPECT_EQ(outcomeOfRun(*sequencer, "main", value("{}")), R"({"o":12})");
}

TEST_F(Run, RefusesArgumentsThatAreNoMap) {
    begin(counting);
    EXPECT_TRUE(outcomeOfRun(*sequencer, "main", value("5")).starts_with("exception TypeMismatchException: "));
    EXPECT_TRUE(outcomeOfRun(*sequencer, "main", value("[1]")).starts_with("exception TypeMismatchException: "));
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":11})");
}

TEST_F(Run, LooksForTheProcedureAheadOfItsArguments) {
    begin(counting);
    EXPECT_EQ(outcomeOfRun(*sequencer, "nothing", value("5")), "failure procedure nothing not found: ");
}

TEST_F(Run, WithRefusedArgumentsBeginsNoFlow) {
    begin(counting);
    EXPECT_TRUE(outcomeOfRun(*sequencer, "main", value("5")).starts_with("exception TypeMismatchException: "));
    EXPECT_EQ(json(sequencer->Control("status", COtxValue())), R"({"flows":[],"globalvars":{"g":10}})");
    EXPECT_EQ(outcomeOfRun(*sequencer, "nothing"), "failure procedure nothing not found: ");
    EXPECT_EQ(json(sequencer->Control("status", COtxValue())), R"({"flows":[],"globalvars":{"g":10}})");
}

TEST_F(Run, NamesTheProcedureThatIsNotThere) {
    begin(counting);
    EXPECT_EQ(outcomeOfRun(*sequencer, "Main"), "failure procedure Main not found: ");
    EXPECT_EQ(outcomeOfRun(*sequencer, ""), "failure procedure  not found: ");
}

TEST_F(Run, IgnoresContextVariablesThatAreNoMap) {
    begin(counting);
    sequencer->SetContextVariables(value("[1,2]"));
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":11})");
}

TEST_F(Run, RefusesContextVariablesWhoseKeysAreNoStrings) {
    begin(counting);
    sequencer->SetContextVariables(value(R"({"Map":[[1,2]]})"));
    EXPECT_TRUE(outcomeOfRun(*sequencer, "main").starts_with("exception TypeMismatchException: "));
}

TEST_F(Run, LeavesItsArgumentsAlone) {
    begin(document(procedure("main",
                             "<action id=\"a1\"><realisation xsi:type=\"Assignment\"><result xsi:type=\"IntegerVariable\" "
                             "name=\"n\"/><term xsi:type=\"IntegerLiteral\" value=\"9\"/></realisation></action>",
                             integer("inParam", "n", 0))));
    const COtxValue arguments = value(R"({"n":5})");
    EXPECT_EQ(outcomeOfRun(*sequencer, "main", arguments), "{}");
    EXPECT_EQ(json(arguments), R"({"n":5})");
}

TEST_F(Run, OnTwoThreadsAtOnceHasTwoFlowsAndOneSetOfGlobals) {
    begin(counting);
    BackgroundRun first(sequencer, "main", true);
    EXPECT_EQ(json(OTX::GetParameter(host->nextStop(), "id", OTX::ValueType::Integer)), "0");
    BackgroundRun second(sequencer, "main", true);
    EXPECT_EQ(json(OTX::GetParameter(host->nextStop(), "id", OTX::ValueType::Integer)), "1");
    EXPECT_EQ(outcomeOfControl(*sequencer, "run", R"({"flowId":1})"), R"("")");
    EXPECT_EQ(second.outcome(), R"({"o":11})");
    EXPECT_EQ(outcomeOfControl(*sequencer, "run", R"({"flowId":1})"), "failure Invalid thread id: 1");
    EXPECT_EQ(outcomeOfControl(*sequencer, "run", R"({"flowId":0})"), R"("")");
    EXPECT_EQ(first.outcome(), R"({"o":12})");
}

TEST_F(Run, OfManySequencersOnManyThreadsAtOnce) {
    std::vector<std::thread> threads;
    std::vector<std::string> outcomes(8);
    for (std::string& outcome : outcomes) {
        threads.emplace_back([&outcome] {
            for (int round = 0; round < 10; ++round) {
                const auto own = load(counting);
                const auto ownHost = std::make_shared<StopHost>();
                own->SetHost(ownHost);
                outcome = outcomeOfRun(*own, "main");
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (const std::string& outcome : outcomes) EXPECT_EQ(outcome, R"({"o":11})");
}

TEST_F(Run, MayBeEndedByDestroyingTheSequencerOnAnotherThread) {
    begin(counting);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":11})");
    std::thread([this] { sequencer.reset(); }).join();
    begin(counting);
    EXPECT_EQ(outcomeOfRun(*sequencer, "main"), R"({"o":11})");
}

// --- flow ids

TEST_F(Run, CountsItsFlows) {
    begin(counting);
    for (const char* id : {"0", "1", "2"}) {
        BackgroundRun run(sequencer, "main", true);
        EXPECT_EQ(json(OTX::GetParameter(host->nextStop(), "id", OTX::ValueType::Integer)), id);
        sequencer->Control("run", COtxValue());
        run.outcome();
    }
}

TEST_F(Run, AfterAnExceptionOnTheSameThreadKeepsTheFlowId) {
    begin(counting);
    std::vector<std::string> ids;
    std::thread runner([&] {
        for (const char* procedure : {"fail", "fail", "main", "main"}) outcomeOfRun(*sequencer, procedure, COtxValue(), true);
    });
    for (int stop = 0; stop < 6; ++stop) {
        const COtxValue status = host->nextStop();
        ids.push_back(json(OTX::GetParameter(status, "id", OTX::ValueType::Integer)) + ' ' +
                      json(OTX::GetParameter(status, "stack", OTX::ValueType::List)));
        sequencer->Control("step", COtxValue());
    }
    runner.join();
    EXPECT_EQ(ids, (std::vector<std::string>{R"(0 ["fail"])", R"(0 ["fail","fail"])", R"(0 ["fail","fail","main"])",
                                             R"(0 ["fail","fail","main"])", R"(3 ["main"])", R"(3 ["main"])"}));
}

TEST_F(Run, AfterACancelledOneIsNotCancelled) {
    begin(counting);
    std::string first;
    std::string second;
    std::thread runner([&] {
        first = outcomeOfRun(*sequencer, "main", COtxValue(), true);
        second = outcomeOfRun(*sequencer, "main");
    });
    host->nextStop();
    sequencer->Control("cancel", COtxValue());
    runner.join();
    EXPECT_EQ(first, "failure cancelled: ");
    EXPECT_EQ(second, R"({"o":12})") << "the node at which the first run stopped has still run";
}

}  // namespace
