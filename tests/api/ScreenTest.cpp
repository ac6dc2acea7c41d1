// What the tests of screens share: a run with screens through which the test writes variables and lets the run go on.
#include "ScreenTest.h"

#include "Documents.h"
#include "LaneDocuments.h"
#include "Until.h"
#include "Values.h"

#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>

#include <system_error>

namespace api {

std::string entry(const COtxValue& message, const std::string& key) {
    const auto& entries = message.Map();
    const auto found = entries.find(COtxString(key));
    return found != entries.end() ? std::string(found->second.ToString().String()) : std::string();
}

bool isMessage(const COtxValue& message, const std::string& eventType, const std::string& screen) {
    return entry(message, "eventType") == eventType && entry(message, "screenName") == screen;
}

std::string parameter(const COtxValue& message, const std::string& name) {
    const auto& parameters = OTX::GetParameter(message, "parameters", OTX::ValueType::Map).Map();
    const auto found = parameters.find(COtxString(name));
    return found != parameters.end() ? json(found->second) : "";
}

std::string sent(velkotx::Sequencer& sequencer, const std::string& event) {
    try {
        sequencer.SendEvent(value(event));
        return "";
    } catch (const velkotx::BoundaryException& failure) {
        return std::string("boundary ") + failure.what() + ": " + failure.text();
    } catch (const std::system_error& failure) {
        return failure.code() == std::errc::resource_deadlock_would_occur ? "deadlock" : failure.what();
    } catch (const std::exception& failure) {
        return failure.what();
    }
}

std::string closedByOperator(velkotx::Sequencer& sequencer, const std::string& screen) {
    return sent(sequencer, R"({"eventType":"HMI-ScreenClosed","screenName":")" + screen + "\"}");
}

std::string outValue(velkotx::Sequencer& sequencer, const std::string& screen, const std::string& name,
                     const std::string& value) {
    return sent(sequencer, R"({"eventType":"HMI-OutParameterValueChanged","screenName":")" + screen +
                               R"(","parameters":{")" + name + "\":" + value + "}}");
}

void ScreenTest::beginScreens(const std::string& before, const std::string& after, const std::string& globals) {
    host = std::make_shared<ReactingHost>();
    std::string handles;
    for (const char* const screen : {"keys", "panel", "a", "b", "c"}) handles += handleOf(screen, screen);
    begin(procedure("main", makeMonitor("s1", "go", "g") +
                                openScreen("s2", "keys", {{"inoutArg", "x", "x"}, {"outArg", "y", "y"}, {"outArg", "go", "g"}}) +
                                before + waitFor("s3", {"go"}) + after,
                    "", source("variable", "go")),
          handles + globals);
}

void ScreenTest::startUntilOpen(const std::string& screen) {
    start();
    heard(opened, screen);
    // The host hears of it first.
    waitUntil("the opening", [&] { return isOpen(screen); });
}

void ScreenTest::write(const std::string& name, int value) {
    EXPECT_EQ(outValue(sequencer(), "keys", name, std::to_string(value)), "");
}

bool ScreenTest::isOpen(const std::string& screen) {
    const std::string answer = outValue(sequencer(), screen, "nobody's", "0");
    EXPECT_TRUE(answer == "Unknown variable: nobody's" || answer == "Unknown screen: " + screen) << answer;
    return answer == "Unknown variable: nobody's";
}

COtxValue ScreenTest::heard(const std::string& eventType, const std::string& screen) {
    for (;;) {
        COtxValue message = host->nextMessage();
        if (isMessage(message, eventType, screen)) return message;
    }
}

void ScreenTest::expectThatTheNextRunWorks() {
    host->reaction = nullptr;
    // A run that failed has left its screens.
    for (const char* const screen : {"keys", "panel", "a", "b", "c"}) closedByOperator(sequencer(), screen);
    start();
    waitUntil("the end", [this] { return outValue(sequencer(), "keys", "go", "1").empty() || session->isOver(); });
    EXPECT_EQ(outcome(), "{}");
}

}  // namespace api
