// The Parallel node: runs its lanes at the same time and waits for all of them.
#include <OTXCoreActions/Lanes.h>
#include <Trace.h>

#include <future>
#include <memory>
#include <system_error>

#include <cxxabi.h>
#include <signal.h>

namespace otxns {

namespace {

// The threads that start meanwhile take no asynchronous signals: those are for the host's own threads. Those of a fault go
// to the thread that made it.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t asynchronous;
        sigfillset(&asynchronous);
        for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGSYS, SIGABRT}) sigdelset(&asynchronous, fault);
        pthread_sigmask(SIG_BLOCK, &asynchronous, &before_);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t before_;
};

using Futures = std::vector<std::future<void>>;

// The new-thread policy is needed: a task that only begins when somebody waits for it would never reach the barrier.
void startAll(const schema::sequence<Flow>& lanes, const std::shared_ptr<Lanes>& state, Futures& futures) {
    const SignalsBlocked blocked;
    futures.reserve(lanes.size());
    for (const Flow& lane : lanes)
        futures.push_back(std::async(std::launch::async, [state, &lane] { state->runLane(lane); }));
}

void waitForAll(const Futures& futures) {
    for (const auto& future : futures) future.wait();
}

}  // namespace

template <>
void Parallel_impl<Parallel_base>::exec(OtxContext& context) const {
    OTX_TRACE(4, "Parallel");
    if (!realisation().present()) return;
    const auto state = std::make_shared<Lanes>(*this, context);
    Futures futures;
    try {
        startAll(realisation()->lane(), state, futures);
        waitForAll(futures);
    } catch (const std::exception&) {
        state->abandon();
        waitForAll(futures);
        throw std::future_error(std::future_errc::no_state);
    } catch (abi::__forced_unwind&) {
        // The lanes must end before the thread can.
        state->cancelSequence();
        throw;
    }
    state->raise();
}

}  // namespace otxns
