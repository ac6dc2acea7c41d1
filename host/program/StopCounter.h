// Which flows of a run are stopped, counted from what the run tells and what it was told.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>

namespace velkotx::host {

// A flow stops and is resumed in turn, so it is stopped exactly while it has stopped once more than it was resumed. The
// two may be counted in any order: a flow may have stopped again before the one who resumed it comes to count that.
// (The "state" of a status doesn't tell: a flow counts as stopped there until its thread has woken.)
//
// No locks of its own.
class StopCounter {
public:
    // The "id" of a flow's status; a run never uses one twice.
    using Flow = long long;
    using Flows = std::map<Flow, std::size_t>;

    void stopped(Flow flow) { ++flows_[flow].stops; }
    void resumed(Flow flow) { ++flows_[flow].resumes; }
    // The thread of the flow is gone.
    void ended(Flow flow) { flows_[flow].ended = true; }

    bool isKnown(Flow flow) const { return flows_.contains(flow); }
    bool isStopped(Flow flow) const;
    bool hasEnded(Flow flow) const;
    std::set<Flow> stoppedFlows() const;

    // For commands of several threads, which may come to count them in another order than the run did them: the stopped
    // flows as they were before the command, handed back after it succeeded, with the flow that it was for, if not for
    // all. A flow that stopped while the command was on its way counts as resumed by it.
    Flows stops() const;
    void resumedFrom(const Flows& before, std::optional<Flow> only = {});

private:
    struct Counts {
        std::size_t stops = 0;
        std::size_t resumes = 0;
        bool ended = false;

        bool isStopped() const { return !ended && stops > resumes; }
    };

    std::map<Flow, Counts> flows_;
};

}  // namespace velkotx::host
