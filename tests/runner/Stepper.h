// Drives a run in single steps from a thread of its own.
#pragma once

#include <velkotx/Sequencer.h>

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>

namespace documents {

// A stopped flow is told to this object by the host's callback, on the thread of the flow and maybe under locks of the
// sequencer. The run's first flow gets its step from another thread, and the callback doesn't wait for it. A lane gets it
// inside the callback: a step that comes later may take the place of the lane's termination by another one.
class Stepper {
public:
    explicit Stepper(velkotx::Sequencer& sequencer);
    Stepper(const Stepper&) = delete;
    Stepper& operator=(const Stepper&) = delete;
    ~Stepper();

    // The flow has stopped and wants one step. Any thread.
    void flowStopped(long long flowId);

    // Call when the run has ended: joins the thread, and throws what a step threw.
    void finish();

private:
    void work();
    void step(long long flowId);

    velkotx::Sequencer& sequencer_;
    std::mutex queueLock_;  // guards what follows
    std::condition_variable queueChanged_;
    std::deque<long long> stoppedFlows_;
    bool finished_ = false;
    std::optional<long long> firstFlow_;
    std::exception_ptr failure_;  // of the first step that failed
    std::thread thread_;
};

}  // namespace documents
