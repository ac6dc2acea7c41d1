// Providers and services as a sequence uses them: what the provider is handed, and what becomes of its answers.
#include "BackgroundRun.h"
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "ProviderDocuments.h"
#include "TestProvider.h"
#include "Values.h"

#include <otx/value/COtxException.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>

#include <stdexcept>
#include <string>

namespace {

using namespace api;

const std::string variables = providerVariable("p") + serviceVariable("h");

class Provider : public FlowTest {
protected:
    // Runs main with the variables p and h; gives the outcome.
    std::string outcomeOf(const std::string& flow, const std::string& locals = "") {
        begin(procedure("main", flow, "", locals), variables);
        start();
        return outcome();
    }
};

// --- making

TEST_F(Provider, IsMadeOfTypeConstructorAndArguments) {
    std::string seenName;
    ProviderScript::Values seen;
    const TestType type("T", [&](const auto& itsHost, const std::string& name, const auto& arguments) {
        EXPECT_NE(itsHost, nullptr);
        seenName = name;
        seen = arguments;
        return COtxValue(std::make_shared<TestProvider>(ProviderScript()));
    });
    EXPECT_EQ(outcomeOf(set("a1", "g", 4) + createProvider("a2", "p", "T", " constructor=\"C\"",
                                                           inInteger("a", 1) + inVariable("b", "g") + inInteger("a", 3)) +
                        assignOfProvider("a3", "x", "IsDisposed", "p")),
              "{}");
    EXPECT_EQ(seenName, "C");
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen["a"].Int(), 3) << "the last one of a name";
    EXPECT_EQ(seen["b"].Int(), 4);
}

TEST_F(Provider, IsMadeWithAnEmptyNameAndNoArguments) {
    const TestType type("T", [&](const auto&, const std::string& name, const auto& arguments) {
        EXPECT_EQ(name, "");
        EXPECT_TRUE(arguments.empty());
        return COtxValue(std::make_shared<TestProvider>(ProviderScript()));
    });
    EXPECT_EQ(outcomeOf(createProvider("a1", "p", "T")), "{}");
}

TEST_F(Provider, ThatCannotBeMadeLeavesTheVariable) {
    bool isFirst = true;
    const TestType type("T", [&](const auto&, const auto&, const auto&) {
        if (!isFirst) throw COtxException(OTX::Exceptions_e::ConfigurationException, "no port");
        isFirst = false;
        ProviderScript script;
        script.execute = [](const auto&, const auto&, const auto&, const auto& out) {
            out.at("o")->Set(COtxInt(5));
            return endedService();
        };
        return COtxValue(std::make_shared<TestProvider>(script));
    });
    EXPECT_EQ(outcomeOf(createProvider("a1", "p", "T") +
                        handlerOf(providerException("ConfigurationException"), "h1", createProvider("a2", "p", "T"),
                                  executeService("a3", "p", "S", "", outVariable("o", "g")))),
              "{}");
    EXPECT_EQ(global("g"), 5);
}

TEST_F(Provider, OfAnUnknownTypeCanBeHandled) {
    EXPECT_EQ(outcomeOf(handlerOf(providerException("ProviderException"), "h1", createProvider("a1", "p", "Nobody"),
                                  set("a2", "g", 1))),
              "{}");
    EXPECT_EQ(global("g"), 1);
    EXPECT_EQ(outcomeOf(createProvider("a1", "p", "Nobody")),
              "exception ProviderException: Unknown provider type 'Nobody': it isn't registered, and no folder of plug-ins is named");
}

TEST_F(Provider, IsNotMadeWithoutAHost) {
    bool isMade = false;
    const TestType type("T", [&](const auto&, const auto&, const auto&) {
        isMade = true;
        return COtxValue();
    });
    const auto run = [&](const std::string& arguments) {
        return outcomeOfRun(
            *load(document(procedure("main", createProvider("a1", "p", "T", "", arguments)), variables)), "main");
    };
    EXPECT_EQ(run(""), "failure Host Service interface not initialised: ");
    EXPECT_EQ(run(inVariable("a", "missing")), "exception InvalidReferenceException: missing") << "arguments come first";
    EXPECT_FALSE(isMade);
}

TEST_F(Provider, FailsInItsMakerAsAStatedException) {
    const TestType type("T", [](const auto&, const auto&, const auto&) -> COtxValue { throw 5; });
    EXPECT_EQ(outcomeOf(createProvider("a1", "p", "T")),
              "exception ProviderException: Provider type 'T': threw something that is no exception");
}

// --- services

TEST_F(Provider, IsHandedTheArgumentsOfAService) {
    ProviderScript script;
    script.execute = [](const std::string& service, const auto& in, const auto& inout, const auto& out) {
        EXPECT_EQ(service, "S");
        EXPECT_EQ(in.size(), 1U);
        EXPECT_EQ(in.at("i").Int(), 7);
        EXPECT_EQ(inout.at("b")->Value().Int(), 3);
        inout.at("b")->Set(COtxInt(13));
        out.at("o")->Set(COtxInt(14));
        return endedService();
    };
    const TestType type("T", script);
    EXPECT_EQ(outcomeOf(set("a1", "x", 3) + createProvider("a2", "p", "T") +
                        executeService("a3", "p", "S", "", inInteger("i", 7) + inoutVariable("b", "x") + outVariable("o", "y"))),
              "{}");
    EXPECT_EQ(global("x"), 13);
    EXPECT_EQ(global("y"), 14);
}

TEST_F(Provider, IsNotAskedWhenAnArgumentFails) {
    ProviderScript script;
    bool isAsked = false;
    script.execute = [&](const auto&, const auto&, const auto&, const auto&) {
        isAsked = true;
        return endedService();
    };
    const TestType type("T", script);
    for (const std::string& argument :
         {inVariable("a", "missing"), inoutVariable("a", "missing"), outVariable("a", "missing")})
        EXPECT_EQ(outcomeOf(createProvider("a1", "p", "T") + executeService("a2", "p", "S", "", argument)),
                  "exception InvalidReferenceException: missing");
    EXPECT_FALSE(isAsked);
}

TEST_F(Provider, IsEvaluatedAheadOfTheArgumentsAndUsedBehindThem) {
    EXPECT_EQ(outcomeOf(executeService("a1", "p", "S", "", inVariable("a", "missing"))),
              "exception InvalidReferenceException: p");
    EXPECT_EQ(outcomeOf(executeService("a1", "g", "S", "", inVariable("a", "missing"))),
              "exception InvalidReferenceException: missing")
        << "g is an Integer, which is found out when the provider is called";
    EXPECT_TRUE(outcomeOf(executeService("a1", "g", "S")).starts_with("exception TypeMismatchException: "));
}

TEST_F(Provider, FailsThroughTheActionUnchanged) {
    ProviderScript script;
    script.execute = [](const std::string& service, const auto&, const auto&, const auto&) -> COtxValue {
        if (service == "otx") throw COtxException(OTX::Exceptions_e::ExecuteException, "busy");
        if (service == "standard") throw std::runtime_error("broken");
        throw 5;
    };
    script.dispose = [] { throw COtxException(OTX::Exceptions_e::ProviderDisposedException, "again"); };
    const TestType type("T", script);
    const std::string make = createProvider("a1", "p", "T");
    EXPECT_EQ(outcomeOf(make + executeService("a2", "p", "otx")), "exception ExecuteException: busy");
    EXPECT_EQ(outcomeOf(make + handlerOf(providerException("ExecuteException"), "h1", executeService("a2", "p", "otx"),
                                         set("a3", "g", 1))),
              "{}");
    EXPECT_EQ(global("g"), 1);
    EXPECT_EQ(outcomeOf(make + executeService("a2", "p", "standard")), "other broken");
    EXPECT_EQ(outcomeOf(make + disposeProvider("a2", "p")), "exception ProviderDisposedException: again");
    EXPECT_EQ(outcomeOf(make + parallel("n1", {executeService("a2", "p", "number"), set("a3", "x", 1)}) + set("a4", "g", 2)),
              cancelled);
    EXPECT_EQ(global("g"), 0);
}

// --- the end of a service

TEST_F(Provider, IsNotWaitedForByAnAsynchronousService) {
    ProviderScript script;
    script.execute = [](const auto&, const auto&, const auto&, const auto&) {
        return serviceWith(COtxSignalEventSource(OTX::EventKind::ServiceExecutionFinished));
    };
    const TestType type("T", script);
    EXPECT_EQ(outcomeOf(createProvider("a1", "p", "T") + executeService("a2", "p", "S", " executeAsync=\"true\"")), "{}");
}

TEST_F(Provider, EndsASynchronousServiceByAnEventOfItsKindOnly) {
    ProviderScript script;
    script.execute = [](const auto&, const auto&, const auto&, const auto&) {
        const COtxSignalEventSource source(OTX::EventKind::ServiceProvider);
        source.EventSource().Signal();
        return serviceWith(source);
    };
    const TestType type("T", script);
    for (const char* const attributes : {"", " executeAsync=\"false\""})
        EXPECT_EQ(outcomeOf(createProvider("a1", "p", "T") + executeService("a2", "p", "S", attributes)),
                  "exception TypeMismatchException: ");
}

TEST_F(Provider, FailsInTheEventWhenTheSourceIsClosed) {
    ProviderScript script;
    script.execute = [](const auto&, const auto&, const auto&, const auto&) {
        const COtxSignalEventSource source(OTX::EventKind::ServiceExecutionFinished);
        source.EventSource().Close();
        return serviceWith(source);
    };
    const TestType type("T", script);
    EXPECT_EQ(outcomeOf(createProvider("a1", "p", "T") + executeService("a2", "p", "S")),
              "exception TypeMismatchException: Operation Event is not supported by type Empty");
}

TEST_F(Provider, GivesWhatIsNoServiceOrNoSource) {
    ProviderScript script;
    script.execute = [](const std::string& service, const auto&, const auto&, const auto&) {
        return service == "S" ? COtxValue(COtxInt(1)) : serviceWith(COtxInt(1));
    };
    const TestType type("T", script);
    const std::string make = createProvider("a1", "p", "T");
    EXPECT_TRUE(outcomeOf(make + executeService("a2", "p", "S")).starts_with("exception TypeMismatchException: Operation "
                                                                             "ServiceProviderService "));
    EXPECT_TRUE(outcomeOf(make + executeService("a2", "p", "U")).starts_with("exception TypeMismatchException: Operation "
                                                                             "EventSource "));
    EXPECT_EQ(outcomeOf(make + executeService("a2", "p", "S", " executeAsync=\"true\"", "", "h")), "{}");
}

TEST_F(Provider, HasItsServicesTerminatedWithAndWithoutAResult) {
    const TestType type("T", ProviderScript());
    EXPECT_EQ(outcomeOf(createProvider("a1", "p", "T") + executeService("a2", "p", "S", "", "", "h") +
                        terminateService("a3", "h") + terminateService("a4", "h", "x")),
              "{}");
    EXPECT_EQ(json(OTX::GetParameter(session->status(), "globalvars", OTX::ValueType::Map).Map().at(COtxString("x"))), "true");
}

// --- terms, and what there is no behaviour for

TEST_F(Provider, IsAskedByTerms) {
    const TestType type("T", ProviderScript());
    std::string results;
    for (const char* const name : {"r1", "r2", "r3", "r4", "r5", "r6", "r7"})
        results += declared("outParam", name, "Boolean\">");
    begin(procedure("main",
                    createProvider("a1", "p", "T") + executeService("a2", "p", "S", "", "", "h") +
                        waitForService("a3", "h", "e") + assignOfProvider("a4", "r1", "IsDisposed", "p") +
                        assignOfService("a5", "r2", "IsServiceRunning", "h") +
                        assignOfEvent("a6", "r3", "IsServiceExecutionFinishedEvent", "e") +
                        assignOfEvent("a7", "r4", "IsServiceProviderEvent", "e") +
                        assignOfProvider("a8", "r5", "GetProperty", "missing") +
                        assignOfProvider("a9", "r6", "ServiceProviderEventSource", "missing") +
                        assignOfEvent("a10", "r7", "GetServiceProviderFromEvent", "missing"),
                    results, source("variable", "e")),
          variables);
    start();
    EXPECT_EQ(outcome(), R"({"r1":true,"r2":true,"r3":true,"r4":false,"r5":false,"r6":"Not implemented","r7":"not implemented"})");
}

TEST_F(Provider, HasEventsThatTermsTellApart) {
    ProviderScript script;
    script.execute = [](const auto&, const auto&, const auto&, const auto&) {
        const COtxSignalEventSource source(OTX::EventKind::ServiceProvider);
        source.EventSource().Signal();
        return serviceWith(source);
    };
    const TestType type("T", script);
    begin(procedure("main",
                    createProvider("a1", "p", "T") + executeService("a2", "p", "S", " executeAsync=\"true\"", "", "h") +
                        waitForService("a3", "h", "e") + assignOfEvent("a4", "r1", "IsServiceExecutionFinishedEvent", "e") +
                        assignOfEvent("a5", "r2", "IsServiceProviderEvent", "e"),
                    declared("outParam", "r1", "Boolean\">") + declared("outParam", "r2", "Boolean\">"),
                    source("variable", "e")),
          variables);
    start();
    EXPECT_EQ(outcome(), R"({"r1":false,"r2":true})");
}

TEST_F(Provider, HasActionsWithoutBehaviour) {
    const TestType type("T", ProviderScript());
    EXPECT_TRUE(outcomeOf(createProvider("a1", "p", "T") + setProperty("a2", "p")).starts_with("failure "));
    EXPECT_TRUE(outcomeOf(fetchEventValues("a2", "missing")).starts_with("failure "));
}

TEST_F(Provider, HasNoEventSource) {
    EXPECT_EQ(outcomeOf(waitForProvider("a1", "missing")),
              "exception TypeMismatchException: Operation EventSource is not supported by type String");
}

}  // namespace
