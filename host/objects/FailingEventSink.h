// An event sink that refuses one message: shows how a run bears a host that fails.
#pragma once

#include "objects/ForwardingEventSink.h"

#include <atomic>
#include <cstddef>
#include <memory>

namespace velkotx::host {

// Throws std::runtime_error, "The host refuses message " and the number, for the n-th message, counted from 1; hands
// all others on. Any number of threads may send.
class FailingEventSink : public ForwardingEventSink {
public:
    FailingEventSink(std::shared_ptr<HostEventSink> target, std::size_t failAt);

    void sendRequest(const COtxValue& message) override;

private:
    const std::size_t failAt_;
    std::atomic<std::size_t> count_{0};
};

}  // namespace velkotx::host
