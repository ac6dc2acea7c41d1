// Where the commands of a script enter the run.
#pragma once

#include "program/StopCounter.h"
#include "program/script/HostCommand.h"

#include <functional>
#include <iosfwd>
#include <mutex>
#include <string>

namespace velkotx {
class HostEventSink;
class Sequencer;
}

namespace velkotx::host {

// Hands commands to the Sequencer, writes replies and refusals, and knows which flows are stopped. Several threads may
// use it, but never one that is delivering a message: only noteStop is for that. Owns nothing of what it is given.
class CommandPort {
public:
    // `sending` is called ahead of each command, on the thread that sends it. It throws nothing.
    CommandPort(Sequencer& sequencer, HostEventSink& messages, std::ostream& err,
                std::function<void(const HostCommand&)> sending = {});

    // A control's reply goes to the messages as {"reply": ...}; what the run refuses is refused here.
    void send(const HostCommand& command);
    // One JSON line {"refused": ...} on standard error.
    void refuse(const std::string& what);

    void noteStop(StopCounter::Flow flow);
    bool someFlowIsStopped() const;
    // Whether no flow of the run is left that could send another message; false when the run can't tell.
    bool allFlowsAreStopped() const;

private:
    void control(const ControlCommand& command);
    void noteResumed(const ControlCommand& command, const StopCounter::Flows& before);

    Sequencer& sequencer_;
    HostEventSink& messages_;
    const std::function<void(const HostCommand&)> sending_;

    std::mutex errLock_;
    std::ostream& err_;  // guarded by errLock_

    mutable std::mutex stopsLock_;
    StopCounter stops_;  // guarded by stopsLock_
};

}  // namespace velkotx::host
