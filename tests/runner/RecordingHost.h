// The host object of the runner: records the messages of a run.
#pragma once

#include "Stepper.h"
#include "Transcript.h"
#include "answering/Answerer.h"
#include "recording/CallRecorder.h"

#include <otx/value/COtxValue.h>
#include <velkotx/HostEventSink.h>

#include <future>
#include <mutex>
#include <string>
#include <vector>

namespace documents {

class RecordingHost : public velkotx::HostEventSink {
public:
    // The keys are those of a stop's status that are recorded; with none, a stop that is stepped leaves no line. The
    // refusals are those of messages, by number.
    RecordingHost(Transcript& transcript, std::vector<std::string> stopKeys, HostFailures refusals)
        : transcript_(transcript), stopKeys_(std::move(stopKeys)), refusals_(std::move(refusals)) {}

    // Who gets the stops from now on; null for nobody, which makes them messages like all others. Not during a run.
    void stepWith(Stepper* stepper) { stepper_ = stepper; }
    // Who answers the messages from now on. Not during a run.
    void answerWith(Answerer* answerer) { answerer_ = answerer; }

    void sendRequest(const COtxValue& message) override;

    // Whether messages are kept from now on. Not during a run.
    void keep(bool keeps) { keeps_ = keeps; }
    // Records each kept message that isn't what it was when it came, and lets go of all. Not during a run.
    void recordKept();

private:
    struct Kept {
        COtxValue message;
        std::string json;
    };

    void recordStop(const COtxValue& status);

    Transcript& transcript_;
    const std::vector<std::string> stopKeys_;
    const HostFailures refusals_;
    Stepper* stepper_ = nullptr;
    Answerer* answerer_ = nullptr;
    bool keeps_ = false;
    std::mutex messagesLock_;  // guards all below
    int messages_ = 0;
    std::vector<Kept> kept_;
};

// What the sequencer holds: it can go at any time, while the host itself has to stay until the last call is over. A screen
// that is closed from inside one of its own messages leaves a thread behind that is still in that call.
class HostHandle : public velkotx::HostEventSink {
public:
    explicit HostHandle(RecordingHost& host) : host_(host) {}
    ~HostHandle() override { gone_.set_value(); }
    HostHandle(const HostHandle&) = delete;
    HostHandle& operator=(const HostHandle&) = delete;

    // Ready when the handle has gone, and with it the last call.
    std::future<void> gone() { return gone_.get_future(); }
    void sendRequest(const COtxValue& message) override { host_.sendRequest(message); }

private:
    RecordingHost& host_;
    std::promise<void> gone_;
};

}  // namespace documents
