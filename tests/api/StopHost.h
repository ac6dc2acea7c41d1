// A host object that lets a test wait for the stops of a run.
#pragma once

#include <otx/value/COtxValue.h>
#include <velkotx/HostEventSink.h>

#include <condition_variable>
#include <deque>
#include <mutex>

namespace api {

class StopHost : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue& message) override;

    // The next "FlowStopped" message. Throws std::runtime_error when none comes within a minute.
    COtxValue nextMessage();

    // The status in it.
    COtxValue nextStop();

private:
    std::mutex messagesLock_;
    std::condition_variable messagesChanged_;
    std::deque<COtxValue> messages_;
};

}  // namespace api
