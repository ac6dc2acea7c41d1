// Services on threads of their own: waits, terminations from other lanes, commands of run control, ends of everything.
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "ProviderDocuments.h"
#include "TestProvider.h"
#include "ThreadCount.h"
#include "Until.h"
#include "WaitProbe.h"

#include <otx/provider/Provider.h>
#include <otx/value/COtxException.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <string>
#include <utility>

namespace {

using namespace api;
namespace esp = ExternalServiceProvider;

// Until lasts until it is asked to end; Farewell does so too, and then sends a message; Write writes its out argument o; Fail
// fails.
class Worker final : public esp::Provider {
public:
    Worker(std::shared_ptr<esp::HostInterface> host, std::atomic<int>& running) : host_(std::move(host)), running_(running) {}

    esp::ServiceWork Execute(const std::string& service, const esp::ProviderArguments& in,
                             const esp::ProviderVariables& variables) override {
        if (service == "Write")
            return [written = in.Required("i", OTX::ValueType::Integer), variables](const std::stop_token&) {
                variables.Write("o", written);
            };
        if (service == "Fail") return [](const std::stop_token&) { throw COtxException(OTX::Exceptions_e::Exception, "no"); };
        return [this, isPolite = service == "Farewell"](const std::stop_token& terminated) {
            ++running_;
            std::mutex waitLock;
            std::condition_variable_any never;
            std::unique_lock guard(waitLock);
            never.wait(guard, terminated, [] { return false; });
            if (isPolite) host_->sendRequest(COtxValue());
            --running_;
        };
    }

private:
    const std::shared_ptr<esp::HostInterface> host_;
    std::atomic<int>& running_;
};

class ProviderService : public FlowTest {
protected:
    void beginWith(const std::string& flow, const std::string& locals = "") {
        begin(procedure("main", createProvider("c1", "p", "Worker") + flow, "", source("variable", "s") + locals),
              providerVariable("p") + serviceVariable("h"));
        start();
    }

    std::atomic<int> running{0};
    const TestType type{"Worker", [this](const auto& itsHost, const auto&, const auto&) {
                            return esp::MakeProvider(std::make_shared<Worker>(itsHost, running));
                        }};
};

TEST_F(ProviderService, IsWaitedForWithItsResults) {
    beginWith(executeService("a1", "p", "Write", "", inInteger("i", 5) + outVariable("o", "g")) + copyInteger("a2", "x", "g"));
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("x"), 5);
}

// The handle stands in its variable while the lane waits: the write wakes the other lane.
TEST_F(ProviderService, IsTerminatedByAnotherLaneWhileItsOwnWaits) {
    beginWith(makeServiceMonitor("a0", "s", "h") +
              parallel("n1", {executeService("a1", "p", "Until", "", "", "h") + set("a2", "g", 1),
                              waitFor("a3", {"s"}) + terminateService("a4", "h", "t")}) +
                  set("a5", "x", 2),
              declared("variable", "t", "Boolean\">"));
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 1);
    EXPECT_EQ(running, 0);
}

TEST_F(ProviderService, IsFollowedByItsEventWhenItIsAsynchronous) {
    beginWith(executeService("a1", "p", "Until", " executeAsync=\"true\"", "", "h") + terminateService("a2", "h") +
              waitForService("a3", "h") + waitForService("a4", "h") + set("a5", "g", 1));
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 1) << "each source of the end fires";
}

TEST_F(ProviderService, ThatFailsEndsLikeAnyOther) {
    beginWith(executeService("a1", "p", "Fail") + set("a2", "g", 1));
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 1);
}

TEST_F(ProviderService, IsEndedByTheDisposalInAnotherLane) {
    beginWith(makeServiceMonitor("a0", "s", "h") +
              parallel("n1", {executeService("a1", "p", "Until", "", "", "h") + set("a2", "g", 1),
                              waitFor("a3", {"s"}) + disposeProvider("a4", "p")}) +
              executeService("a5", "p", "Until"));
    EXPECT_EQ(outcome(), "exception ProviderDisposedException: The provider has been disposed of");
    EXPECT_EQ(global("g"), 1);
    EXPECT_EQ(running, 0);
}

// --- a provider goes while its service speaks to the host, which asks the run for its status: no lock may be held

class ProviderFarewell : public ProviderService {
protected:
    void SetUp() override {
        host->reaction = [this](const COtxValue&) { EXPECT_TRUE(control("status").starts_with(R"({"flows":[)")); };
    }

    const std::string make = createProvider("f1", "q", "Worker") +
                             executeService("f2", "q", "Farewell", " executeAsync=\"true\"");

    // Runs main and a procedure `maker`, whose variable q is a provider.
    void expectFarewells(std::size_t count, const std::string& main, const std::string& maker) {
        begin(procedure("main", main) + procedure("maker", maker, "", providerVariable("q") + listOfProviders("l")));
        start();
        EXPECT_EQ(outcome(), "{}");
        EXPECT_EQ(host->count(), count);
        EXPECT_EQ(running, 0);
    }
};

TEST_F(ProviderFarewell, AtTheEndOfAProcedure) { expectFarewells(1, call("a1", "maker") + set("a2", "g", 1), make); }

TEST_F(ProviderFarewell, AtTheEndOfProceduresInLanes) {
    expectFarewells(2, parallel("n1", {call("a1", "maker"), call("a2", "maker")}), make);
}

TEST_F(ProviderFarewell, WhenAnotherOneIsAssigned) {
    expectFarewells(1, call("a1", "maker"), make + createProvider("a2", "q", "Worker"));
}

TEST_F(ProviderFarewell, WhenAListIsCleared) {
    expectFarewells(1, call("a1", "maker"),
                    make + appendProvider("a2", "l", "q") + createProvider("a3", "q", "Worker") + clearList("a4", "l"));
}

TEST_F(ProviderFarewell, AtTheDisposal) {
    expectFarewells(1, call("a1", "maker"), make + mutexGroup("m1", disposeProvider("a2", "q")));
}

// --- run control

// The source of a service is a probe of the test, which tells when the lane waits.
class ProviderWait : public FlowTest {
protected:
    void SetUp() override {
        begin(procedure("main", createProvider("c1", "p", "Probing") +
                                    handlerOf("TypeMismatchException", "h1", executeService("a1", "p", "S"), set("a2", "g", 1))),
              providerVariable("p"));
        start();
        WaitProbe::behind(probe).awaitWaits(1);
    }

    const COtxValue probe = WaitProbe::make();
    const TestType type{"Probing", [this] {
                            ProviderScript script;
                            script.execute = [this](const auto&, const auto&, const auto&, const auto&) {
                                return serviceWith(probe);
                            };
                            return script;
                        }()};
};

TEST_F(ProviderWait, HoldsNoLockOfTheSequencer) {
    EXPECT_EQ(global("g"), 0);
    EXPECT_EQ(control("stop"), ok);
    WaitProbe::behind(probe).Signal();
    EXPECT_EQ(stopAt("a2"), 0) << "the probe's event is of another kind";
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(ProviderWait, FailsInTheEventWhenAllSourcesAreClosed) {
    EXPECT_EQ(control("closees"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 1) << "it isn't the exception of a wait for events";
}

TEST_F(ProviderWait, IsEndedByACancel) {
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    EXPECT_EQ(global("g"), 0);
}

// --- lives

TEST_F(ProviderService, GoesOnBehindTheRunUntilTheSequencerGoes) {
    const std::size_t threads = threadCount();
    beginWith(executeService("a1", "p", "Until", " executeAsync=\"true\"") +
              executeService("a2", "p", "Until", " executeAsync=\"true\""));
    EXPECT_EQ(outcome(), "{}");
    waitUntil("both run", [&] { return running == 2; });
    session.reset();
    EXPECT_EQ(running, 0);
    EXPECT_TRUE(isThreadCountReached(threads));
}

TEST_F(ProviderService, EndsWhenAnotherProviderTakesTheVariable) {
    beginWith(executeService("a1", "p", "Until", " executeAsync=\"true\"", "", "h") + createProvider("a2", "p", "Worker") +
              assignOfService("a3", "g", "IsServiceRunning", "h") + executeService("a4", "p", "Write", "", inInteger("i", 1)));
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(running, 0);
}

TEST_F(ProviderService, OfACancelledRunEndsWithTheSequencer) {
    beginWith(executeService("a1", "p", "Until"));
    waitUntil("it runs", [&] { return running == 1; });
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
    session.reset();
    EXPECT_EQ(running, 0);
}

TEST_F(ProviderService, ServesManyLanes) {
    const std::string lane = loopOf(
        "l", "i", 200,
        executeService("a1", "p", "Write", "", inInteger("i", 3) + outVariable("o", "g")) + createProvider("a2", "q", "Worker") +
            executeService("a3", "q", "Until", " executeAsync=\"true\"", "", "h") + terminateService("a4", "h") +
            disposeProvider("a5", "q"));
    const auto declaredLane = [&](const std::string& name) { return call("call" + name, name); };
    begin(procedure("main", createProvider("c1", "p", "Worker") +
                                parallel("n1", {declaredLane("worker"), declaredLane("worker"), declaredLane("worker")})) +
              procedure("worker", lane, "",
                        integer("variable", "i", 0) + providerVariable("q") + serviceVariable("h")),
          providerVariable("p"));
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 3);
    EXPECT_EQ(running, 0);
}

}  // namespace
