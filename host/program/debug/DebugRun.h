// One run under the debugger, on a thread of its own.
#pragma once

#include "program/InterruptThread.h"
#include "program/Outcome.h"
#include "program/debug/RunBoard.h"

#include <otx/value/COtxValue.h>

#include <atomic>
#include <future>
#include <iosfwd>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <thread>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

class SetUp;

// What is to be run. The references outlive the run.
struct RunOrder {
    const std::string& document;  // in the compiled form
    const SetUp& setUp;
    std::string procedure;
    bool startStopped = false;
    std::set<std::string> breakpoints;
    std::ostream& err;  // for what became of dialogs: nobody is asked, since the commands have the terminal
};

// Each run has a Sequencer of its own, which its thread makes and destroys. Made, used and destroyed on one thread, which
// has SIGINT blocked: Ctrl-C stops the run's flows.
class DebugRun {
public:
    // Starts the run, and returns as soon as it can be steered.
    explicit DebugRun(const RunOrder& order);
    // Cancels the run if it lasts, and waits for its end. Ctrl-C, pressed twice meanwhile, ends the program.
    ~DebugRun();

    DebugRun(const DebugRun&) = delete;
    DebugRun& operator=(const DebugRun&) = delete;

    RunBoard& board() { return *board_; }
    // Cancels the run and waits for its end, as the destructor does.
    void finish();
    // Throws as Sequencer::Control does. Also for a run that has ended.
    COtxValue control(const std::string& command, const COtxValue& parameters) const;

private:
    void work(const RunOrder& order);
    // The run can't begin.
    void giveUp(const Outcome& outcome);
    void takeInterrupt(const InterruptThread& thread);
    // False when there is nothing to stop, or to cancel, yet.
    bool stopAll() const;
    bool cancel() const;
    bool isTaken(const char* command) const;

    const std::shared_ptr<RunBoard> board_;
    std::promise<Sequencer*> ready_;  // null for a document that can't be loaded
    std::promise<void> release_;      // the Sequencer isn't needed any more
    std::thread thread_;
    Sequencer* sequencer_ = nullptr;
    std::atomic<bool> isEnding_{false};
    std::optional<InterruptThread> interrupts_;
};

}  // namespace velkotx::host
