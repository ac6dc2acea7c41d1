// The record of one thread that runs sequence code.
#pragma once

#include <otx/value/COtxValue.h>
#include <schema/core.h>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace otxns {

// What a flow does at its next checkpoint.
enum class FlowState : int {
    running = 0,    // goes on; stops at a breakpoint
    stopping = 1,   // stops
    cancelled = 2,  // leaves with CancelException
    throwing = 3    // raises the pending exception and goes on running
};

// Owned by OtxContext from BeginFlow to EndFlow. Only the flow's own thread ends it.
struct OtxFlow {
    OtxFlow(unsigned id, FlowState initial) : state(initial), flowId(id) {}

    // Under `lock`, as every change of what a checkpoint looks at.
    void setState(FlowState next) noexcept {
        state = next;
        isCheckpointIdle = next == FlowState::running && !hasBreakpoints;
    }
    void setBreakpoints(bool any) noexcept {
        hasBreakpoints = any;
        setState(state);
    }

    // Guards `pending`, `waitedFor`, `stopped` and `resumes`, and every write of `state`. Recursive, since a host may answer the
    // event of a stop with a command on the same thread.
    std::recursive_mutex lock;
    // Where a stopped flow sleeps until `resumes` changes.
    std::condition_variable_any wake;

    // The node about to run. Written by the flow's thread only.
    std::atomic<const Node*> node{nullptr};
    std::atomic<FlowState> state;
    bool hasBreakpoints = false;
    // All that a checkpoint with nothing to do reads.
    std::atomic<bool> isCheckpointIdle{false};
    // The whole run was cancelled while this was one of its flows, not only its lane.
    std::atomic<bool> runCancelled{false};
    // Not so after a command that took the place of the cancellation.
    bool isRunCancelled() const noexcept { return runCancelled && state == FlowState::cancelled; }
    COtxValue pending;
    // The event source that the flow is waiting for, else empty.
    COtxValue waitedFor;
    // 1 from the decision to stop until a command resumes the flow, else 0.
    int stopped = 0;
    std::uint64_t resumes = 0;
    const unsigned flowId;
};

}  // namespace otxns
