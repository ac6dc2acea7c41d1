// Takes Ctrl-C on a thread of its own.
#include "program/InterruptThread.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace velkotx::host {

namespace {

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

InterruptsBlocked::InterruptsBlocked() {
    const sigset_t signals = interruptOnly();
    pthread_sigmask(SIG_BLOCK, &signals, &before_);
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

InterruptThread::InterruptThread(Handler handler)
    : handler_(std::move(handler)),
      interrupted_(interruptDescriptor(), "signalfd"),
      over_(eventfd(0, EFD_CLOEXEC), "eventfd") {
    if (!isIgnored())
        thread_ = std::thread([this] { watch(); });
}

InterruptThread::~InterruptThread() {
    if (!thread_.joinable())
        return;
    eventfd_write(over_, 1);
    thread_.join();
}

void InterruptThread::watch() const {
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

void InterruptThread::letThrough() const {
    const sigset_t signals = interruptOnly();
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

}  // namespace velkotx::host
