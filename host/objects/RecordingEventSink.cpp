// An event sink that keeps what it is sent.
#include "objects/RecordingEventSink.h"

#include <otx/value/Functions.h>

namespace velkotx::host {

void RecordingEventSink::sendRequest(const COtxValue& message) {
    const COtxValue copy = OTX::DeepCopy(message);
    const std::lock_guard guard(messagesLock_);
    messages_.push_back(copy);
    messageCame_.notify_all();
}

std::vector<COtxValue> RecordingEventSink::messages() const {
    const std::lock_guard guard(messagesLock_);
    return messages_;
}

COtxValue RecordingEventSink::waitFor(std::size_t index) const {
    std::unique_lock guard(messagesLock_);
    messageCame_.wait(guard, [&] { return messages_.size() > index; });
    return messages_[index];
}

}  // namespace velkotx::host
