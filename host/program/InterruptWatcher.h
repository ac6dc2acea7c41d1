// Turns Ctrl-C, and what else ends programs, into the cancellation of a run.
#pragma once

#include "program/InterruptThread.h"

#include <functional>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

// While it lives, the first Ctrl-C (SIGINT), SIGTERM or hang-up of the terminal (SIGHUP) cancels the run of the Sequencer,
// from a thread of its own; a Ctrl-C or SIGTERM behind it finds the system's own answer to the signal, which ends the
// process. A hang-up never does: the system and the shell send one each. Made, destroyed and refused as InterruptThread is.
// The Sequencer has to outlive it.
class InterruptWatcher {
public:
    // `cancelling` is called ahead of the cancellation, on that thread. It throws nothing.
    explicit InterruptWatcher(Sequencer& sequencer, std::function<void()> cancelling = [] {});

private:
    void cancelRun(const InterruptThread& thread) const;
    bool cancel() const;

    Sequencer& sequencer_;
    const std::function<void()> cancelling_;
    const InterruptThread thread_;
};

}  // namespace velkotx::host
