// Takes signals on a thread of its own.
#include "program/InterruptThread.h"

#include "rest/HostThread.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <system_error>
#include <utility>

namespace velkotx::host {

namespace {

sigset_t maskOf(const Signals& signals) {
    sigset_t mask;
    sigemptyset(&mask);
    for (const int number : signals)
        sigaddset(&mask, number);
    return mask;
}

int descriptorOf(const Signals& signals) {
    const sigset_t mask = maskOf(signals);
    return signalfd(-1, &mask, SFD_CLOEXEC);
}

bool isIgnored(int number) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

Signals withoutIgnored(Signals signals) {
    std::erase_if(signals, isIgnored);
    return signals;
}

}  // namespace

InterruptsBlocked::InterruptsBlocked(const Signals& signals) {
    const sigset_t mask = maskOf(signals);
    pthread_sigmask(SIG_BLOCK, &mask, &before_);
}

InterruptsBlocked::~InterruptsBlocked() {
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

InterruptThread::Descriptor::Descriptor(int number, const char* what) : number_(number) {
    if (number_ < 0)
        throw std::system_error(errno, std::generic_category(), what);
}

InterruptThread::Descriptor::~Descriptor() {
    close(number_);
}

InterruptThread::InterruptThread(Handler handler, const Signals& signals)
    : handler_(std::move(handler)),
      signals_(withoutIgnored(signals)),
      blocked_(signals_),
      interrupted_(descriptorOf(signals_), "signalfd"),
      over_(eventfd(0, EFD_CLOEXEC), "eventfd") {
    if (!signals_.empty())
        thread_ = std::thread([this] { watch(); });
}

InterruptThread::~InterruptThread() {
    if (!thread_.joinable())
        return;
    eventfd_write(over_, 1);
    thread_.join();
}

void InterruptThread::watch() const {
    const HostThread registered;
    pollfd waited[] = {{interrupted_, POLLIN, 0}, {over_, POLLIN, 0}};
    for (;;) {
        while (poll(waited, 2, -1) < 0 && errno == EINTR) {
        }
        if (waited[1].revents != 0)
            return;
        signalfd_siginfo taken{};
        [[maybe_unused]] const ssize_t size = read(interrupted_, &taken, sizeof taken);
        handler_(*this);
    }
}

bool InterruptThread::over(int milliseconds) const {
    pollfd waited{over_, POLLIN, 0};
    return poll(&waited, 1, milliseconds) > 0;
}

void InterruptThread::letThrough(const Signals& signals) const {
    Signals own;
    std::ranges::set_intersection(signals, signals_, std::inserter(own, own.end()));
    const sigset_t mask = maskOf(own);
    pthread_sigmask(SIG_UNBLOCK, &mask, nullptr);
}

}  // namespace velkotx::host
