// Drives a run in single steps from a thread of its own.
#pragma once

#include <velkotx/Sequencer.h>

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

namespace documents {

// A stopped flow is told to this object by the host's callback, on the thread of the flow and maybe under locks of the
// sequencer. The step is therefore given by another thread, and the callback doesn't wait for it.
class Stepper {
public:
    explicit Stepper(velkotx::Sequencer& sequencer);
    Stepper(const Stepper&) = delete;
    Stepper& operator=(const Stepper&) = delete;
    ~Stepper();

    // The flow has stopped and wants one step. Any thread.
    void flowStopped(long long flowId);

    // Call when the run has ended: joins the thread, and throws what a step of it threw.
    void finish();

private:
    void work();

    velkotx::Sequencer& sequencer_;
    std::mutex queueLock_;  // guards the three below
    std::condition_variable queueChanged_;
    std::deque<long long> stoppedFlows_;
    bool finished_ = false;
    std::exception_ptr failure_;  // of the thread; read after it is joined
    std::thread thread_;
};

}  // namespace documents
