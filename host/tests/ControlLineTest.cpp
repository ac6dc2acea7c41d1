// Lines of a control file, and the messages that they wait for.
#include "program/JsonMembers.h"
#include "program/script/ControlLine.h"
#include "program/script/MessageTypes.h"

#include <otx/value/Functions.h>

#include <gtest/gtest.h>

#include <future>

namespace {

using namespace velkotx::host;

std::string complaint(const std::string& line) {
    try {
        readControlLine(line);
    } catch (const FormError& error) {
        return error.what();
    }
    return "none";
}

TEST(ControlLine, ReadsACommand) {
    const ControlLine line = readControlLine(R"({"control":"step","params":{"flowId":2}})");
    const auto& control = std::get<ControlCommand>(std::get<HostCommand>(line));
    EXPECT_EQ(control.word, "step");
    EXPECT_EQ(OTX::GetParameter(control.parameters, "flowId", OTX::ValueType::Integer).Int(), 2);
}

TEST(ControlLine, ReadsAnEvent) {
    const ControlLine line = readControlLine(R"({"eventType":"HMI-CloseScreen","screenName":"A"})");
    EXPECT_TRUE(std::holds_alternative<Event>(std::get<HostCommand>(line)));
}

TEST(ControlLine, ReadsAnAwait) {
    const ControlLine line = readControlLine(R"({"await":"FlowStopped"})");
    EXPECT_EQ(std::get<Await>(line).eventType, "FlowStopped");
}

TEST(ControlLine, RefusesOtherForms) {
    EXPECT_EQ(complaint("[]"), "a JSON object was expected");
    EXPECT_EQ(complaint("{}"), "neither 'control' nor 'eventType' is there");
    EXPECT_EQ(complaint(R"({"await":"a","control":"run"})"), "unknown key 'control'");
    EXPECT_EQ(complaint(R"({"await":""})"), "'await' is empty");
    EXPECT_EQ(complaint(R"({"control":"run","eventType":"HMI-"})"), "unknown key 'eventType'");
    EXPECT_NE(complaint("{"), "none");
}

TEST(MessageTypes, AMessageThatHasComeIsNotWaitedFor) {
    MessageTypes messages;
    messages.note("a");
    messages.note("b");
    EXPECT_TRUE(messages.await("a"));
    EXPECT_TRUE(messages.await("b"));
}

TEST(MessageTypes, TheNextOneIsBehindTheLastWait) {
    MessageTypes messages;
    messages.note("a");
    messages.note("b");
    EXPECT_TRUE(messages.await("b"));
    messages.close();
    EXPECT_FALSE(messages.await("a"));
}

TEST(MessageTypes, EachMessageEndsOneWait) {
    MessageTypes messages;
    messages.note("a");
    messages.note("a");
    EXPECT_TRUE(messages.await("a"));
    EXPECT_TRUE(messages.await("a"));
    messages.close();
    EXPECT_FALSE(messages.await("a"));
}

TEST(MessageTypes, WaitsForAMessageAndForTheClose) {
    MessageTypes messages;
    auto first = std::async(std::launch::async, [&] { return messages.await("a"); });
    messages.note("b");
    messages.note("a");
    EXPECT_TRUE(first.get());
    auto second = std::async(std::launch::async, [&] { return messages.await("a"); });
    messages.close();
    EXPECT_FALSE(second.get());
}

}  // namespace
