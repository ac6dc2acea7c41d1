// A host object that does something of its own at each message.
#pragma once

#include "StopHost.h"

#include <atomic>
#include <cstddef>
#include <functional>

namespace api {

// Keeps each message like StopHost, and then lets the reaction have it, on the thread that delivered it.
class ReactingHost : public StopHost {
public:
    using Reaction = std::function<void(const COtxValue& message)>;

    // To be set before the run.
    Reaction reaction;

    void sendRequest(const COtxValue& message) override {
        ++count_;
        StopHost::sendRequest(message);
        if (reaction) reaction(message);
    }

    // How many messages there were.
    std::size_t count() const { return count_; }

private:
    std::atomic<std::size_t> count_{0};
};

}  // namespace api
