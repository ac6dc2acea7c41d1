// What the debugger knows of a run while it lasts, and the place where it waits for more.
#pragma once

#include "program/Outcome.h"
#include "program/StopCounter.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace velkotx::host {

// The run's threads report here, and never wait. The rest is for the one thread that resumes flows. No lock is held while
// anybody else is called.
class RunBoard {
public:
    using Flow = StopCounter::Flow;

    struct Stop {
        Flow flow;
        std::string node;  // its id; empty ahead of the first node
    };

    // Reports of the run's threads and of Ctrl-C.

    // Gives whether it is the flow's first stop.
    bool flowStopped(Flow flow, const std::string& node);
    // The flow's thread is gone.
    void flowEnded(Flow flow);
    void runEnded(const Outcome& outcome);
    void interrupted();

    // What is known.

    bool hasEnded() const;
    // Of a run that has ended.
    Outcome outcome() const;
    std::set<Flow> stoppedFlows() const;
    // Whether that flow, or one at all if none is named, was resumed and hasn't stopped since. Until its thread
    // has woken, the run refuses commands that are for running flows, though it heeds them.
    bool someFlowWasResumed(std::optional<Flow> flow) const;
    // Where a flow stopped last; empty for a flow that never did.
    std::string nodeOf(Flow flow) const;
    // The stops that weren't taken yet and still last, in the order of the flows.
    std::vector<Stop> takeStops();

    // Waiting. Each false answer means that Ctrl-C was pressed twice since beginResume, or that the time is up.

    // Ahead of the commands that resume flows.
    void beginResume();
    // A flow was resumed. Where it stood at a Parallel and runs step by step, the flows of its lanes stand for it.
    void resumed(Flow flow, std::size_t lanes);
    // Until all flows that were resumed have stopped again or ended and one is stopped, or a flow has stopped that wasn't
    // resumed (the others may wait for it), or the run has ended.
    bool waitForResumed();
    // Those that were resumed since beginResume and have ended.
    std::vector<Flow> endedFlows() const;
    // Until a stop can be taken or the run has ended; without a limit if there is none.
    bool waitForStop(std::optional<std::chrono::milliseconds> limit);
    bool waitForEnd();
    // Pays no heed to Ctrl-C.
    bool waitForEnd(std::chrono::milliseconds limit);

private:
    bool isSettled(Flow flow) const;
    bool allResumedAreSettled() const;
    bool anotherHasStopped() const;
    bool canTakeStop() const;
    bool isCalledOff() const { return interrupts_ >= 2; }

    mutable std::mutex boardLock_;
    std::condition_variable changed_;

    // All guarded by boardLock_.
    StopCounter counter_;
    std::map<Flow, std::string> nodes_;
    std::set<Flow> untaken_;
    std::optional<Outcome> outcome_;
    // Since beginResume.
    std::map<Flow, std::size_t> resumed_;  // with the number of lanes
    std::set<Flow> stoppedSince_;
    std::set<Flow> newSince_;  // of these, the ones that had never stopped before
    int interrupts_ = 0;
};

}  // namespace velkotx::host
