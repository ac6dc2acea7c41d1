// A run and a keyboard that exist in memory only, for the tests of the operator.
#pragma once

#include "operator/OperatorInput.h"
#include "operator/RunPort.h"
#include "operator/ScreenNews.h"

#include <otx/value/IString.h>
#include <otx/value/Json.h>

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>

// A message of the run, from its JSON text.
inline velkotx::host::ScreenNews news(const std::string& json) {
    auto read = velkotx::host::readNews(OTX::FromJSON(json));
    if (!read)
        throw std::invalid_argument("no news: " + json);
    return *read;
}

inline std::string jsonOf(const COtxValue& value) {
    value.SetOTXJSON(true);
    const COtxValue json = value.ToJSON();
    return json.String();
}

// A line for each thing that is done to the run; the question whether a screen is open is none. Refuses events as it is
// told, by their text.
class FakePort : public velkotx::host::RunPort {
public:
    std::map<std::string, std::string> refusals;

    std::optional<std::string> sendEvent(const COtxValue& event) override { return note(jsonOf(event)); }
    std::optional<std::string> cancel() override { return note("cancel"); }

    // No screen of that name is open for the run.
    void forget(const std::string& screen) {
        refusals[R"({"eventType":"HMI-OutParameterValueChanged","parameters":{},"screenName":")" + screen + "\"}"] =
            "Unknown screen: " + screen;
    }

    // What was done since the last call.
    std::string take() {
        const std::lock_guard guard(doneLock_);
        std::string taken;
        taken.swap(done_);
        return taken;
    }
    // Blocks until something has been done, in that form.
    void await(const std::string& what) {
        std::unique_lock guard(doneLock_);
        changed_.wait(guard, [&] { return done_.find(what) != std::string::npos; });
    }

private:
    std::optional<std::string> note(const std::string& what) {
        const std::lock_guard guard(doneLock_);
        if (what.find("\"parameters\":{}") == std::string::npos)
            done_ += what + '\n';
        changed_.notify_all();
        const auto refusal = refusals.find(what);
        return refusal != refusals.end() ? std::optional(refusal->second) : std::nullopt;
    }

    std::mutex doneLock_;
    std::condition_variable changed_;
    std::string done_;  // guarded by doneLock_
};

inline std::string resultEvent(const std::string& screen, const std::string& value, const std::string& name = "result") {
    return R"({"eventType":"HMI-OutParameterValueChanged","parameters":{")" + name + "\":" + value + R"(},"screenName":")" +
           screen + "\"}\n";
}

inline std::string closedEvent(const std::string& screen) {
    return R"({"eventType":"HMI-ScreenClosed","screenName":")" + screen + "\"}\n";
}

// What a test types. Time that somebody waits for has passed at once.
class MemoryInput : public velkotx::host::OperatorInput {
public:
    Event next(bool reads, std::optional<std::chrono::milliseconds> limit) override {
        std::unique_lock guard(inputLock_);
        isWaiting_ = true;
        changed_.notify_all();
        changed_.wait(guard, [&] { return isWoken_ || limit || (reads && !events_.empty()); });
        isWaiting_ = false;
        if (isWoken_ || !reads || events_.empty()) {
            isWoken_ = false;
            return {};
        }
        const Event event = events_.front();
        events_.pop_front();
        return event;
    }

    void wake() override {
        const std::lock_guard guard(inputLock_);
        isWoken_ = true;
        changed_.notify_all();
    }

    // Until the operator has seen to all that he was woken for and that was typed.
    void awaitIdle() {
        std::unique_lock guard(inputLock_);
        changed_.wait(guard, [this] { return isWaiting_ && !isWoken_ && events_.empty(); });
    }
    void type(const std::string& line) { put({What::line, line}); }
    void put(const Event& event) {
        const std::lock_guard guard(inputLock_);
        events_.push_back(event);
        changed_.notify_all();
    }

private:
    std::mutex inputLock_;
    std::condition_variable changed_;
    // Guarded by inputLock_.
    std::deque<Event> events_;
    bool isWoken_ = false;
    bool isWaiting_ = false;
};
