// Drives a run in single steps from a thread of its own.
#include "Stepper.h"

#include "TraceRecorder.h"

#include <otx/value/Json.h>

#include <cxxabi.h>

#include <string>

namespace documents {

Stepper::Stepper(velkotx::Sequencer& sequencer) : sequencer_(sequencer), thread_([this] { work(); }) {}

Stepper::~Stepper() {
    if (!thread_.joinable()) return;
    {
        const std::lock_guard guard(queueLock_);
        finished_ = true;
    }
    queueChanged_.notify_one();
    thread_.join();
}

void Stepper::flowStopped(long long flowId) {
    {
        const std::lock_guard guard(queueLock_);
        if (!firstFlow_) firstFlow_ = flowId;
        if (flowId == *firstFlow_) stoppedFlows_.push_back(flowId);
    }
    if (flowId == *firstFlow_)
        queueChanged_.notify_one();
    else
        step(flowId);
}

void Stepper::step(long long flowId) {
    try {
        sequencer_.Control("step", OTX::FromJSON("{\"flowId\":" + std::to_string(flowId) + "}"));
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        const std::lock_guard guard(queueLock_);
        if (!failure_) failure_ = std::current_exception();
    }
}

void Stepper::finish() {
    {
        const std::lock_guard guard(queueLock_);
        finished_ = true;
    }
    queueChanged_.notify_one();
    thread_.join();
    if (failure_) std::rethrow_exception(failure_);
}

void Stepper::work() {
    TraceRecorder::ignoreThisThread();
    std::unique_lock guard(queueLock_);
    while (true) {
        queueChanged_.wait(guard, [this] { return finished_ || !stoppedFlows_.empty(); });
        if (stoppedFlows_.empty()) return;
        const long long flowId = stoppedFlows_.front();
        stoppedFlows_.pop_front();
        guard.unlock();
        step(flowId);
        guard.lock();
    }
}

}  // namespace documents
