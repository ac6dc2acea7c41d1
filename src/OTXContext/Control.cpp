// The commands of run control.
#include <OTXContext/OtxContext.h>
#include <OTXContext/Target.h>
#include <otx/event/COtxEventSource.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>
#include <otx/value/IString.h>

#include <algorithm>
#include <stdexcept>

namespace otxns {

namespace {

// Each command has a number, by which the host's words arrive. All others do as `run`.
enum Command : int {
    stopCommand = 0,
    stepCommand = 2,
    setBreakpointsCommand = 3,
    clearBreakpointsCommand = 4,
    cancelCommand = 5,
    statusCommand = 6,
    unnamedStatusCommand = 7,
    exceptionCommand = 8,
    closeEventSourcesCommand = 9,
    putEventSourcesCommand = 10
};

std::string textParameter(const COtxValue& params, const std::string& key, const std::string& fallback) {
    return OTX::GetOptionalParameter(params, key, COtxString(fallback), OTX::ValueType::String).String();
}

COtxValue anyParameter(const COtxValue& params, const std::string& key) {
    return OTX::GetOptionalParameter(params, key, COtxValue(), OTX::ValueType::Empty);
}

}  // namespace

OtxContext::Target::Target(const std::map<std::thread::id, OtxFlow>& flows, const COtxValue& params) {
    const auto number = OTX::GetOptionalParameter(params, "flowId", COtxInt(-1), OTX::ValueType::Integer).Int();
    flowId_ = std::to_string(number);
    if (number < 0) return;
    const auto found = std::find_if(flows.begin(), flows.end(),
                                    [&](const auto& entry) { return entry.second.flowId == number; });
    if (found == flows.end()) throw std::runtime_error("Invalid thread id: " + flowId_);
    thread_ = found->first;
}

COtxValue OtxContext::Control(int number, const COtxValue& params) {
    std::unique_lock guard(flowLock);
    const Target target(flows, params);
    switch (number) {
        case stopCommand:
            stop(target);
            break;
        case stepCommand:
            wake(target, FlowState::stopping);
            break;
        case setBreakpointsCommand:
            setBreakpoints(params);
            break;
        case clearBreakpointsCommand:
            clearBreakpoints(params);
            break;
        case cancelCommand:
            // The host is told of closing screens, and waited for, with no lock that its answers may need.
            guard.unlock();
            CancelAll();
            break;
        case statusCommand:
        case unnamedStatusCommand:
            return status(target);
        case exceptionCommand:
            inject(target, params);
            break;
        case closeEventSourcesCommand:
            COtxEventSource::CloseAll(firstFlow());
            break;
        case putEventSourcesCommand: {
            const COtxValue value = anyParameter(params, "value");
            const COtxValue param = anyParameter(params, "param");
            COtxEventSource::PutAll(firstFlow(), value, param);
            break;
        }
        default:
            wake(target, FlowState::running);
            break;
    }
    return COtxString();
}

void OtxContext::stop(const Target& target) {
    bool found = false;
    for (auto& [thread, flow] : flows) {
        if (!target.matches(thread)) continue;
        const std::lock_guard own(flow.lock);
        flow.setState(FlowState::stopping);
        if (flow.stopped == 0)
            found = true;
        else if (target.isOne())
            throw std::runtime_error("Thread " + target.flowId() + " not running");
    }
    if (!found) throw std::runtime_error("No threads running");
}

void OtxContext::wake(const Target& target, FlowState state) {
    bool found = false;
    for (auto& [thread, flow] : flows) {
        if (!target.matches(thread)) continue;
        const std::lock_guard own(flow.lock);
        flow.setState(state);
        if (flow.stopped == 1) {
            found = true;
            flow.stopped = 0;
            ++flow.resumes;
            flow.wake.notify_all();
        } else if (target.isOne()) {
            // The small letter in the words of `run` is meant.
            throw std::runtime_error(state == FlowState::running ? "thread " + target.flowId() + " running"
                                                                 : "Thread " + target.flowId() + " not stopped");
        }
    }
    if (!found) throw std::runtime_error("No threads stopped");
}

std::set<std::string> OtxContext::breakpointIds() const {
    const Breakpoints* const current = breakpoints;
    return current != nullptr ? *current : Breakpoints();
}

void OtxContext::publishBreakpoints(std::set<std::string> ids) {
    const Breakpoints* published = nullptr;
    if (!ids.empty()) {
        breakpointSets.push_back(std::make_unique<const Breakpoints>(std::move(ids)));
        published = breakpointSets.back().get();
    }
    breakpoints.store(published, std::memory_order_release);
    for (auto& [thread, flow] : flows) {
        const std::lock_guard own(flow.lock);
        flow.setBreakpoints(published != nullptr);
    }
    if (flows.empty()) std::erase_if(breakpointSets, [&](const auto& set) { return set.get() != published; });
}

void OtxContext::setBreakpoints(const COtxValue& params) {
    const COtxValue ids = OTX::GetParameter(params, "breakpoints", OTX::ValueType::List);
    std::set<std::string> added;
    for (const COtxValue& id : ids.List()) added.insert(id.String());
    added.merge(breakpointIds());
    publishBreakpoints(std::move(added));
}

void OtxContext::clearBreakpoints(const COtxValue& params) {
    const COtxValue ids = OTX::GetOptionalParameter(params, "breakpoints", COtxList(), OTX::ValueType::List);
    std::set<std::string> left;
    if (!ids.List().empty()) left = breakpointIds();
    for (const COtxValue& id : ids.List()) left.erase(id.String());
    publishBreakpoints(std::move(left));
}

void OtxContext::inject(const Target& target, const COtxValue& params) {
    const std::string type = textParameter(params, "type", "UserException");
    const COtxException exception(type, textParameter(params, "text", ""));
    bool found = false;
    for (auto& [thread, flow] : flows) {
        if (!target.matches(thread)) continue;
        const std::lock_guard own(flow.lock);
        flow.setState(FlowState::throwing);
        flow.pending = exception;
        if (flow.stopped == 0)
            found = true;
        else if (target.isOne())
            throw std::runtime_error("Thread " + target.flowId() + " not running");
    }
    if (!found) throw std::runtime_error("No threads running");
}

}  // namespace otxns
