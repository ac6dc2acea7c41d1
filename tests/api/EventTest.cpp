// Events from the host to a run.
#include "Documents.h"
#include "StopHost.h"
#include "Values.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace {

using namespace api;

std::string outcomeOfEvent(velkotx::Sequencer& sequencer, const std::string& event) {
    try {
        sequencer.SendEvent(value(event));
        return "taken";
    } catch (const velkotx::BoundaryException& failure) {
        const bool runtime = dynamic_cast<const velkotx::OTXRuntimeException*>(&failure) != nullptr;
        return std::string(runtime ? "runtime " : "sequence ") + failure.what();
    } catch (const std::runtime_error& failure) {
        return std::string("failure ") + failure.what();
    }
}

class Event : public testing::Test {
protected:
    std::string send(const std::string& event) { return outcomeOfEvent(*sequencer, event); }

    std::shared_ptr<StopHost> host = std::make_shared<StopHost>();
    std::shared_ptr<velkotx::Sequencer> sequencer = load(document(procedure("main", "")));
};

TEST_F(Event, OfAnUnknownTypeIsRefused) {
    EXPECT_EQ(send(R"({"eventType":"FlowStopped"})"), "failure Unknown event type: FlowStopped");
    EXPECT_EQ(send(R"({"eventType":""})"), "failure Unknown event type: ");
    EXPECT_EQ(send(R"({"eventType":"hmi-Closed"})"), "failure Unknown event type: hmi-Closed");
    EXPECT_EQ(send(R"({"eventType":"HMI"})"), "failure Unknown event type: HMI");
    EXPECT_EQ(send(R"({"eventType":"XHMI-"})"), "failure Unknown event type: XHMI-");
    EXPECT_EQ(send(R"({"eventType":"ESP"})"), "failure Unknown event type: ESP");
}

TEST_F(Event, WithoutATypeIsAnException) {
    EXPECT_EQ(send("{}"), "sequence OutOfBoundsException");
    EXPECT_EQ(send(R"({"eventtype":"HMI-Closed"})"), "sequence OutOfBoundsException");
    EXPECT_EQ(send(R"({"eventType":5})"), "sequence TypeMismatchException");
    EXPECT_EQ(send("5"), "sequence TypeMismatchException");
}

TEST_F(Event, ForTheHmiNeedsAHost) {
    EXPECT_EQ(send(R"({"eventType":"HMI-OutParameterValueChanged"})"), "runtime HMI not initialised");
    EXPECT_EQ(send(R"({"eventType":"HMI-"})"), "runtime HMI not initialised");
}

TEST_F(Event, ForAProviderNeedsAHost) {
    EXPECT_EQ(send(R"({"eventType":"ESP-ServiceFinished"})"), "runtime Host Service interface not initialised");
    EXPECT_EQ(send(R"({"eventType":"ESP-"})"), "runtime Host Service interface not initialised");
}

}  // namespace
