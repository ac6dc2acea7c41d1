// Turns Ctrl-C into the cancellation of a run.
#include "program/InterruptWatcher.h"

#include <otx/value/COtxMap.h>
#include <velkotx/Sequencer.h>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace velkotx::host {

namespace {

// How long to wait before a cancel that found nothing is asked for again.
constexpr int retryMilliseconds = 20;

sigset_t interruptOnly() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    return signals;
}

int interruptDescriptor() {
    const sigset_t signals = interruptOnly();
    return signalfd(-1, &signals, SFD_CLOEXEC);
}

bool isIgnored() {
    struct sigaction action {};
    sigaction(SIGINT, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

}  // namespace

InterruptWatcher::Descriptor::Descriptor(int number, const char* what) : number_(number) {
    if (number_ < 0)
        throw std::system_error(errno, std::generic_category(), what);
}

InterruptWatcher::Descriptor::~Descriptor() {
    close(number_);
}

InterruptWatcher::Blocked::Blocked() {
    const sigset_t signals = interruptOnly();
    pthread_sigmask(SIG_BLOCK, &signals, &before_);
}

InterruptWatcher::Blocked::~Blocked() {
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

InterruptWatcher::InterruptWatcher(Sequencer& sequencer)
    : sequencer_(sequencer),
      interrupted_(interruptDescriptor(), "signalfd"),
      over_(eventfd(0, EFD_CLOEXEC), "eventfd") {
    if (!isIgnored())
        thread_ = std::thread([this] { watch(); });
}

InterruptWatcher::~InterruptWatcher() {
    if (!thread_.joinable())
        return;
    eventfd_write(over_, 1);
    thread_.join();
}

void InterruptWatcher::watch() {
    pollfd waited[] = {{interrupted_, POLLIN, 0}, {over_, POLLIN, 0}};
    while (poll(waited, 2, -1) < 0 && errno == EINTR) {
    }
    if (waited[1].revents != 0)
        return;
    signalfd_siginfo taken{};
    [[maybe_unused]] const ssize_t size = read(interrupted_, &taken, sizeof taken);
    const sigset_t signals = interruptOnly();
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    // A cancel that comes before the run's first node, or after its last, finds nothing to cancel and says so.
    while (!cancel() && !over(retryMilliseconds)) {
    }
    // Stays until the run is over, since no other thread can take the second signal.
    while (!over(-1)) {
    }
}

bool InterruptWatcher::over(int milliseconds) const {
    pollfd waited{over_, POLLIN, 0};
    return poll(&waited, 1, milliseconds) > 0;
}

bool InterruptWatcher::cancel() {
    try {
        sequencer_.Control("cancel", COtxMap());
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace velkotx::host
