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

namespace {

[[noreturn]] void raiseNoFirstFlow() {
    throw std::runtime_error("Invalid thread id: 0");
}

}  // namespace

// A run that isn't the first of its context has no flow 0: its flows end all the same, and the caller gets the failure
// before the event sources are closed. This is meant.
void OtxContext::CancelAll() {
    const std::optional<std::thread::id> first = markCancelled();
    std::exception_ptr hostFailure;
    try {
        if (OTX::HMI* const current = hmi) current->closeAll();
    }
    OTX_PASS_FORCED_UNWIND
    catch (...) {
        hostFailure = std::current_exception();
    }
    if (!first) raiseNoFirstFlow();
    COtxEventSource::CloseAll(*first);
    COtxEventSource::ThreadGroup().RemoveRoot(*first);
    // Those that were made elsewhere, such as on a thread of the host.
    closeWaitedFor();
    if (hostFailure != nullptr) std::rethrow_exception(hostFailure);
}

// One after the other, with no lock held and without memory: a run is cancelled also where there is none.
void OtxContext::closeWaitedFor() {
    std::thread::id last;
    while (const auto next = nextWaitingFlow(last)) {
        last = next->first;
        next->second.EventSource().Close();
    }
}

std::optional<std::pair<std::thread::id, COtxValue>> OtxContext::nextWaitingFlow(std::thread::id last) {
    const std::lock_guard guard(flowLock);
    for (auto found = flows.upper_bound(last); found != flows.end(); ++found) {
        const std::lock_guard own(found->second.lock);
        const COtxValue& source = found->second.waitedFor;
        if (source.Type() == OTX::ValueType::EventSource) return std::pair(found->first, source);
    }
    return std::nullopt;
}

std::optional<std::thread::id> OtxContext::markCancelled() {
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
    return findFirstFlow();
}

std::optional<std::thread::id> OtxContext::findFirstFlow() const {
    const auto found =
        std::find_if(flows.begin(), flows.end(), [](const auto& entry) { return entry.second.flowId == 0; });
    if (found == flows.end()) return std::nullopt;
    return found->first;
}

std::thread::id OtxContext::firstFlow() const {
    const std::lock_guard guard(flowLock);
    const auto found = findFirstFlow();
    if (!found) raiseNoFirstFlow();
    return *found;
}

}  // namespace otxns
