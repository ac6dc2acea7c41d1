// The checkpoint where a flow meets run control, and the stop.
#include <OTXContext/OtxContext.h>
#include <OTXCoreActions/ControlExceptions.h>
#include <OTXHMIIF/HMI.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <velkotx/HostEventSink.h>

namespace otxns {

constinit thread_local int OtxContext::stopsBeingTold = 0;

class OtxContext::Telling {
public:
    Telling() { ++stopsBeingTold; }
    ~Telling() { --stopsBeingTold; }
    Telling(const Telling&) = delete;
    Telling& operator=(const Telling&) = delete;
};

// Holds flowLock from the decision to the end of the event, so that no command comes between them. The state is read
// once: a change that comes later is seen at the next checkpoint.
void OtxContext::checkClosely(OtxFlow& flow, std::thread::id thread) {
    // Nearly always there is only a breakpoint elsewhere, which needs no lock.
    if (flow.state.load() == FlowState::running && !standsAtBreakpoint(flow)) return;
    std::unique_lock commands(flowLock);
    switch (flow.state.load()) {
        case FlowState::cancelled:
            throw velkotx::CancelException();
        case FlowState::throwing: {
            const std::lock_guard own(flow.lock);
            flow.setState(FlowState::running);
            throw COtxValue(flow.pending);
        }
        case FlowState::running:
            if (!standsAtBreakpoint(flow)) return;
            break;
        case FlowState::stopping:
            break;
    }
    StopHere(flow, thread, commands);
}

bool OtxContext::standsAtBreakpoint(const OtxFlow& flow) const {
    const Node* const node = flow.node.load(std::memory_order_relaxed);
    const Breakpoints* const current = breakpoints.load(std::memory_order_acquire);
    return node != nullptr && current != nullptr && current->count(node->id()) != 0;
}

// The event goes out under flowLock: a command of another thread waits until the host knows of the stop. It doesn't go
// out under the flow's lock, so that a command is no danger to it, and the host may answer it with a command on this
// thread. What resumes the flow is a change of `resumes` since the decision to stop, so that no such answer is lost.
// The check isn't repeated afterwards: the node at which the flow stopped runs, also after a cancel.
void OtxContext::StopHere(OtxFlow& flow, std::thread::id thread, std::unique_lock<std::recursive_mutex>& commands) {
    std::unique_lock own(flow.lock);
    flow.stopped = 1;
    const auto resumes = flow.resumes;
    // If the event can't be sent, the flow goes on unwinding while it counts as stopped, and its frames can be asked
    // for.
    vars.shareStack();
    const COtxMap event(std::map<const std::string, COtxValue>{{"eventType", COtxString("FlowStopped")},
                                                               {"status", flowStatus(flow, thread)}});
    own.unlock();
    {
        const Telling telling;
        Host()->sendRequest(event);
    }
    commands.unlock();
    // Of the screens that the host has closed in its answer.
    if (OTX::HMI* const current = hmi) current->awaitEnds();
    own.lock();
    flow.wake.wait(own, [&] { return flow.resumes != resumes; });
    vars.unshareStack();
}

}  // namespace otxns
