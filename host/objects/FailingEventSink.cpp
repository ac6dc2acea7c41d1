// An event sink that refuses one message.
#include "objects/FailingEventSink.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace velkotx::host {

FailingEventSink::FailingEventSink(std::shared_ptr<HostEventSink> target, std::size_t failAt)
    : ForwardingEventSink(std::move(target)), failAt_(failAt) {}

void FailingEventSink::sendRequest(const COtxValue& message) {
    const std::size_t number = ++count_;
    if (number == failAt_)
        throw std::runtime_error("The host refuses message " + std::to_string(number));
    ForwardingEventSink::sendRequest(message);
}

}  // namespace velkotx::host
