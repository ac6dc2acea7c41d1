// The flows of a run: one for each thread that runs sequence code.
#include <OTXContext/OtxContext.h>

#include <stdexcept>

namespace otxns {

constinit thread_local OtxContext::Recent OtxContext::recent{};

void OtxContext::BeginFlow(FlowState state, std::thread::id parent) {
    const auto thread = std::this_thread::get_id();
    const auto isLeftOver = [&] {
        const std::lock_guard guard(flowLock);
        return flows.count(thread) != 0;
    };
    // A new thread may have the number of one whose run ended in an exception and that is gone. What that one left dies while
    // no lock is held.
    if (parent != std::thread::id() && isLeftOver()) EndFlow(thread);
    const std::lock_guard guard(flowLock);
    vars.newStack(parent);
    const unsigned id = nextFlowId++;
    // The record of a run that ended in an exception stays, with its old number.
    OtxFlow& flow = flows.try_emplace(thread, id, state).first->second;
    recent = {serial_, &flow};
    const auto begun = flows.find(parent);
    flow.runCancelled = begun != flows.end() && begun->second.isRunCancelled();
    {
        // A run that ended because its stop couldn't be told left it as stopped.
        const std::lock_guard own(flow.lock);
        flow.stopped = 0;
        flow.setBreakpoints(breakpoints.load() != nullptr);
    }
    SetFlowState(flow.runCancelled ? FlowState::cancelled : state, thread);
}

void OtxContext::EndFlow(std::thread::id thread) {
    // The variables die after the lock is released.
    const auto ended = [&] {
        const std::lock_guard guard(flowLock);
        recent = {};
        flows.erase(thread);
        return vars.deleteStack();
    }();
}

OtxFlow& OtxContext::FlowOf(std::thread::id thread) {
    const std::lock_guard guard(flowLock);
    const auto found = flows.find(thread);
    if (found == flows.end()) throw std::out_of_range("invalid map<K, T> key");
    return found->second;
}

OtxFlow& OtxContext::findOwnFlow(std::thread::id thread) {
    OtxFlow& flow = FlowOf(thread);
    recent = {serial_, &flow};
    return flow;
}

void OtxContext::SetFlowState(FlowState state, std::thread::id thread) {
    const std::lock_guard guard(flowLock);
    const auto found = flows.find(thread);
    if (found == flows.end()) return;
    const std::lock_guard own(found->second.lock);
    found->second.setState(state);
}

}  // namespace otxns
