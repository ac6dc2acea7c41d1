// Turns Ctrl-C, and what else ends programs, into the cancellation of a run.
#include "program/InterruptWatcher.h"

#include <otx/value/COtxMap.h>
#include <velkotx/Sequencer.h>

#include <utility>

namespace velkotx::host {

namespace {

// How long to wait before a cancel that found nothing is asked for again.
constexpr int retryMilliseconds = 20;

const Signals cancelSignals{SIGINT, SIGTERM, SIGHUP};
const Signals endSignals{SIGINT, SIGTERM};

}  // namespace

InterruptWatcher::InterruptWatcher(Sequencer& sequencer, std::function<void()> cancelling)
    : sequencer_(sequencer),
      cancelling_(std::move(cancelling)),
      thread_([this](const InterruptThread& thread) { cancelRun(thread); }, cancelSignals) {}

void InterruptWatcher::cancelRun(const InterruptThread& thread) const {
    thread.letThrough(endSignals);
    cancelling_();
    // A cancel that comes before the run's first node, or after its last, finds nothing to cancel and says so.
    while (!cancel() && !thread.over(retryMilliseconds)) {
    }
    // Stays until the run is over, since no other thread can take the second signal.
    while (!thread.over(-1)) {
    }
}

bool InterruptWatcher::cancel() const {
    try {
        sequencer_.Control("cancel", COtxMap());
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace velkotx::host
