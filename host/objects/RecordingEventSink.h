// An event sink that keeps what it is sent, so that a test can wait for it and look at it.
#pragma once

#include <otx/value/COtxValue.h>
#include <velkotx/HostEventSink.h>

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <vector>

namespace velkotx::host {

// Keeps a copy of each message that shares nothing with the run. Any thread may send, ask and wait.
class RecordingEventSink : public HostEventSink {
public:
    void sendRequest(const COtxValue& message) override;

    // All messages so far, in the order in which they came.
    std::vector<COtxValue> messages() const;

    // Blocks until the message of this index has come, from 0, and gives it.
    COtxValue waitFor(std::size_t index) const;

private:
    mutable std::mutex messagesLock_;
    mutable std::condition_variable messageCame_;
    std::vector<COtxValue> messages_;  // guarded by messagesLock_
};

}  // namespace velkotx::host
