// An event sink that hands every message on to another one.
#include "objects/ForwardingEventSink.h"

#include <stdexcept>
#include <utility>

namespace velkotx::host {

ForwardingEventSink::ForwardingEventSink(std::shared_ptr<HostEventSink> target) : target_(std::move(target)) {
    if (!target_)
        throw std::invalid_argument("ForwardingEventSink needs a sink to hand messages on to");
}

void ForwardingEventSink::sendRequest(const COtxValue& message) {
    target_->sendRequest(message);
}

}  // namespace velkotx::host
