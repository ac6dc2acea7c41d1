// Cancelling a whole run.
#include <OTXContext/OtxContext.h>
#include <OTXHMIIF/HMI.h>
#include <Unwind.h>
#include <otx/event/COtxEventSource.h>
#include <otx/event/IEventSource.h>

#include <algorithm>
#include <exception>
#include <stdexcept>

namespace otxns {

// A run that isn't the first of its context has no flow 0: its flows end all the same, and the caller gets the failure
// before the event sources are closed. This is meant.
void OtxContext::CancelAll() {
    markCancelled();
    std::exception_ptr hostFailure;
    try {
        if (hmi != nullptr) hmi->closeAll();
    }
    OTX_PASS_FORCED_UNWIND
    catch (...) {
        hostFailure = std::current_exception();
    }
    const auto thread = firstFlow();
    COtxEventSource::CloseAll(thread);
    COtxEventSource::ThreadGroup().RemoveRoot(thread);
    // Those that were made elsewhere, such as on a thread of the host.
    for (const COtxValue& source : waitedFor()) source.EventSource().Close();
    if (hostFailure != nullptr) std::rethrow_exception(hostFailure);
}

std::vector<COtxValue> OtxContext::waitedFor() {
    std::vector<COtxValue> sources;
    const std::lock_guard guard(flowLock);
    for (auto& [thread, flow] : flows) {
        const std::lock_guard own(flow.lock);
        if (flow.waitedFor.Type() == OTX::ValueType::EventSource) sources.push_back(flow.waitedFor);
    }
    return sources;
}

void OtxContext::markCancelled() {
    const std::lock_guard guard(flowLock);
    for (auto& [thread, flow] : flows) {
        const std::lock_guard own(flow.lock);
        flow.setState(FlowState::cancelled);
        flow.runCancelled = true;
        flow.stopped = 0;
        ++flow.resumes;
        flow.wake.notify_all();
    }
    // Who waits for a section may wait for one that is held by whoever waits for it.
    mutexGroupLock.wakeAll();
}

std::thread::id OtxContext::firstFlow() const {
    const std::lock_guard guard(flowLock);
    const auto found =
        std::find_if(flows.begin(), flows.end(), [](const auto& entry) { return entry.second.flowId == 0; });
    if (found == flows.end()) throw std::runtime_error("Invalid thread id: 0");
    return found->first;
}

}  // namespace otxns
