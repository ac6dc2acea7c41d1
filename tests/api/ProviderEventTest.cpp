// What a provider and the host say to each other: messages, "ESP-" events, and hosts that come and go.
#include "Documents.h"
#include "FlowTest.h"
#include "ProviderDocuments.h"
#include "TestProvider.h"
#include "Values.h"

#include <otx/value/COtxException.h>
#include <otx/value/COtxString.h>

#include <stdexcept>
#include <string>
#include <thread>

namespace {

using namespace api;

const std::string variables = providerVariable("p");

// What sending an event throws.
std::string sent(velkotx::Sequencer& sequencer, const std::string& event) {
    try {
        sequencer.SendEvent(value(event));
        return "";
    } catch (const velkotx::BoundaryException& failure) {
        const bool runtime = dynamic_cast<const velkotx::OTXRuntimeException*>(&failure) != nullptr;
        return std::string(runtime ? "failure " : "exception ") + failure.what() + ": " + failure.text();
    } catch (const std::runtime_error& failure) {
        return std::string("other ") + failure.what();
    }
}

class ProviderEvent : public FlowTest {
protected:
    // A provider in a global variable, so that it is there when the run is over.
    void makeProvider() {
        begin(procedure("main", createProvider("a1", "p", "T")), variables);
        start();
        EXPECT_EQ(outcome(), "{}");
    }
    std::string sent(const std::string& event) { return ::sent(session->sequencer(), event); }
};

TEST_F(ProviderEvent, ReachesTheProviderOfItsTypeOnTheThreadOfTheHost) {
    std::string seen;
    std::thread::id thread;
    ProviderScript script;
    script.event = [&](const COtxValue& eventType, const COtxValue& message) {
        seen = eventType.String() + " " + json(message);
        thread = std::this_thread::get_id();
    };
    const TestType type("T", script);
    makeProvider();
    EXPECT_EQ(sent(R"({"eventType":"ESP-Go","providerType":"T","speed":5})"), "");
    EXPECT_EQ(seen, R"(ESP-Go {"eventType":"ESP-Go","providerType":"T","speed":5})");
    EXPECT_EQ(thread, std::this_thread::get_id());
    EXPECT_EQ(sent(R"({"eventType":"ESP-","providerType":"T"})"), "");
    EXPECT_EQ(seen, R"(ESP- {"eventType":"ESP-","providerType":"T"})");
}

TEST_F(ProviderEvent, IsRefusedBeforeTheProviderIsAsked) {
    bool isAsked = false;
    ProviderScript script;
    script.event = [&](const COtxValue&, const COtxValue&) { isAsked = true; };
    const TestType type("T", script);
    makeProvider();
    EXPECT_TRUE(sent(R"({"eventType":"ESP-Go"})").starts_with("exception OutOfBoundsException: "));
    EXPECT_TRUE(sent(R"({"eventType":"ESP-Go","providerType":1})").starts_with("exception TypeMismatchException: "));
    EXPECT_EQ(sent(R"({"eventType":"ESP-Go","providerType":"U"})"),
              "exception ProviderException: No provider of type 'U' has been created");
    EXPECT_EQ(sent(R"({"eventType":"esp-Go","providerType":"T"})"), "other Unknown event type: esp-Go");
    EXPECT_FALSE(isAsked);
}

TEST_F(ProviderEvent, FailsWithWhatTheProviderThrows) {
    ProviderScript script;
    script.event = [](const COtxValue& eventType, const COtxValue&) {
        if (eventType == COtxString("ESP-Otx")) throw COtxException(OTX::Exceptions_e::ProviderDisposedException, "gone");
        throw std::runtime_error("broken");
    };
    const TestType type("T", script);
    makeProvider();
    EXPECT_EQ(sent(R"({"eventType":"ESP-Otx","providerType":"T"})"), "exception ProviderDisposedException: gone");
    EXPECT_EQ(sent(R"({"eventType":"ESP-Std","providerType":"T"})"), "other broken");
}

TEST_F(ProviderEvent, NeedsAHostAheadOfEverythingElse) {
    const auto sequencer = load(document(procedure("main", "")));
    EXPECT_EQ(::sent(*sequencer, R"({"eventType":"ESP-Go"})"), "failure Host Service interface not initialised: ");
    sequencer->SetHost(host);
    EXPECT_TRUE(::sent(*sequencer, R"({"eventType":"ESP-Go"})").starts_with("exception OutOfBoundsException: "));
}

// The check asks for the object that a host once had made, not for the host.
TEST_F(ProviderEvent, IsTakenWhenTheHostIsGone) {
    const TestType type("T", ProviderScript());
    makeProvider();
    host.reset();
    EXPECT_EQ(sent(R"({"eventType":"ESP-Go","providerType":"T"})"), "");
}

TEST_F(ProviderEvent, FindsNoProviderThatWasDropped) {
    const TestType type("T", ProviderScript());
    begin(procedure("main", createProvider("a1", "p", "T"), "", variables));
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(sent(R"({"eventType":"ESP-Go","providerType":"T"})"),
              "exception ProviderException: No provider of type 'T' has been created");
}

// --- messages to the host

class ProviderMessage : public ProviderEvent {
protected:
    void SetUp() override { makeProvider(); }

    std::shared_ptr<ExternalServiceProvider::HostInterface> seen;
    const TestType type{"T", [this](const auto& itsHost, const auto&, const auto&) {
                            seen = itsHost;
                            return COtxValue(std::make_shared<TestProvider>(ProviderScript()));
                        }};
};

TEST_F(ProviderMessage, ReachesTheHostOnTheThreadThatSendsIt) {
    std::string message;
    std::thread::id thread;
    host->reaction = [&](const COtxValue& came) {
        message = json(came);
        thread = std::this_thread::get_id();
    };
    seen->sendRequest(value(R"({"eventType":"ESP-Progress","percent":5})"));
    EXPECT_EQ(message, R"({"eventType":"ESP-Progress","percent":5})");
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST_F(ProviderMessage, FailsWithWhatTheHostThrows) {
    host->reaction = [](const COtxValue&) { throw std::runtime_error("deaf"); };
    EXPECT_THROW(seen->sendRequest(COtxValue()), std::runtime_error);
}

TEST_F(ProviderMessage, IsDroppedWhenTheHostIsGone) {
    host.reset();
    EXPECT_NO_THROW(seen->sendRequest(COtxValue()));
}

TEST_F(ProviderMessage, OutlivesTheSequencer) {
    session.reset();
    EXPECT_NO_THROW(seen->sendRequest(COtxValue()));
    EXPECT_EQ(host->count(), 1U) << "the host lives on";
}

TEST_F(ProviderMessage, StaysWithTheHostOfItsProvider) {
    const auto second = std::make_shared<ReactingHost>();
    const auto before = seen;
    session->sequencer().SetHost(second);
    start();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_NE(seen, before);
    before->sendRequest(COtxValue());
    EXPECT_EQ(host->count(), 1U);
    EXPECT_EQ(second->count(), 0U);
    seen->sendRequest(COtxValue());
    EXPECT_EQ(second->count(), 1U);
}

// An answer from inside the message: no lock of the sequencer is held.
TEST_F(ProviderMessage, MayBeAnsweredByAnEventAtOnce) {
    host->reaction = [&](const COtxValue&) {
        EXPECT_EQ(sent(R"({"eventType":"ESP-Go","providerType":"T"})"), "");
        EXPECT_EQ(control("status").substr(0, 10), R"({"flows":[)");
    };
    seen->sendRequest(COtxValue());
}

}  // namespace
