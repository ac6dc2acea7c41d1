// A host object that lets a test wait for the stops of a run.
#include "StopHost.h"

#include <otx/value/Functions.h>

#include <chrono>
#include <stdexcept>

namespace api {

void StopHost::sendRequest(const COtxValue& message) {
    COtxValue copy = OTX::DeepCopy(message);
    {
        const std::lock_guard guard(messagesLock_);
        messages_.push_back(std::move(copy));
    }
    messagesChanged_.notify_one();
}

COtxValue StopHost::nextMessage() {
    std::unique_lock guard(messagesLock_);
    if (!messagesChanged_.wait_for(guard, std::chrono::minutes(1), [this] { return !messages_.empty(); }))
        throw std::runtime_error("the run didn't stop");
    COtxValue message = std::move(messages_.front());
    messages_.pop_front();
    return message;
}

COtxValue StopHost::nextStop() { return OTX::GetParameter(nextMessage(), "status", OTX::ValueType::Map); }

}  // namespace api
