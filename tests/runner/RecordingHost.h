// The host object of the runner: records the messages of a run.
#pragma once

#include "Stepper.h"
#include "Transcript.h"

#include <velkotx/HostEventSink.h>

#include <string>
#include <vector>

namespace documents {

class RecordingHost : public velkotx::HostEventSink {
public:
    // The keys are those of a stop's status that are recorded; with none, a stop that is stepped leaves no line.
    RecordingHost(Transcript& transcript, std::vector<std::string> stopKeys)
        : transcript_(transcript), stopKeys_(std::move(stopKeys)) {}

    // Who gets the stops from now on; null for nobody, which makes them messages like all others. Not during a run.
    void stepWith(Stepper* stepper) { stepper_ = stepper; }

    void sendRequest(const COtxValue& message) override;

private:
    void recordStop(const COtxValue& status);

    Transcript& transcript_;
    const std::vector<std::string> stopKeys_;
    Stepper* stepper_ = nullptr;
};

}  // namespace documents
