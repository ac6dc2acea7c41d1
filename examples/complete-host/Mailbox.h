// The messages of a run, kept until somebody takes them.
#pragma once

#include <otx/value/COtxValue.h>
#include <velkotx/HostEventSink.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <stop_token>

// Any thread. sendRequest only puts the message down: whoever answers does so on a thread of its own.
class Mailbox : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue& message) override;
    // The next message. Waits for it; nothing when the stop is asked for.
    std::optional<COtxValue> take(const std::stop_token& stop);

private:
    std::mutex mailLock_;  // guards mail_
    std::condition_variable_any came_;
    std::deque<COtxValue> mail_;
};
