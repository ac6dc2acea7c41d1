// An event sink that hands every message on to another one: the base of sinks that watch or change the traffic.
#pragma once

#include <velkotx/HostEventSink.h>

#include <memory>

namespace velkotx::host {

// Shares the ownership of its target. Adds no lock: as safe between threads as the target is.
class ForwardingEventSink : public HostEventSink {
public:
    // Throws std::invalid_argument for an empty target.
    explicit ForwardingEventSink(std::shared_ptr<HostEventSink> target);

    void sendRequest(const COtxValue& message) override;

private:
    const std::shared_ptr<HostEventSink> target_;
};

}  // namespace velkotx::host
