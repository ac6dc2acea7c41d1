// The Parallel node: runs its lanes at the same time and waits for all of them.
#include <OTXCoreActions/Lanes.h>
#include <Trace.h>

#include <future>
#include <memory>
#include <system_error>

#include <signal.h>

namespace otxns {

namespace {

// The threads that start meanwhile take no signals: those are for the host's own threads.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t before_;
};

// Comes back when the last lane has ended: each future waits for its own.
void runAll(const schema::sequence<Flow>& lanes, const std::shared_ptr<Lanes>& state) {
    std::vector<std::future<void>> futures;
    try {
        const SignalsBlocked blocked;
        for (const Flow& lane : lanes)
            futures.push_back(std::async(std::launch::async, [state, &lane] { state->runLane(lane); }));
    } catch (const std::system_error&) {
        state->abandon();
        futures.clear();
        throw std::future_error(std::future_errc::no_state);
    }
}

}  // namespace

template <>
void Parallel_impl<Parallel_base>::exec(OtxContext& context) const {
    OTX_TRACE(4, "Parallel");
    if (!realisation().present()) return;
    const auto state = std::make_shared<Lanes>(*this, context);
    runAll(realisation()->lane(), state);
    state->raise();
}

}  // namespace otxns
