// Turns Ctrl-C into the cancellation of a run.
#include "program/InterruptWatcher.h"

#include <otx/value/COtxValue.h>
#include <velkotx/Sequencer.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <system_error>

namespace velkotx::host {

namespace {

std::atomic<int> interruptedPipe{-1};

[[noreturn]] void failBySystem(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

void wake(int writeEnd) {
    const char byte = 0;
    // The pipe can't be full: nobody writes more than one byte.
    [[maybe_unused]] const ssize_t written = write(writeEnd, &byte, 1);
}

}  // namespace

extern "C" {
static void interruptCame(int) {
    const int before = errno;
    wake(interruptedPipe.load());
    errno = before;
}
}

InterruptWatcher::Pipe::Pipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        failBySystem("pipe");
    readEnd = ends[0];
    writeEnd = ends[1];
}

InterruptWatcher::Pipe::~Pipe() {
    close(readEnd);
    close(writeEnd);
}

InterruptWatcher::InterruptWatcher(Sequencer& sequencer) : sequencer_(sequencer) {
    thread_ = std::thread([this] { watch(); });
    interruptedPipe = interrupted_.writeEnd;
    struct sigaction action {};
    action.sa_handler = interruptCame;
    sigemptyset(&action.sa_mask);
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigaction(SIGINT, &action, &before_);
}

InterruptWatcher::~InterruptWatcher() {
    sigaction(SIGINT, &before_, nullptr);
    wake(over_.writeEnd);
    thread_.join();
    interruptedPipe = -1;
}

void InterruptWatcher::watch() {
    pollfd waited[] = {{interrupted_.readEnd, POLLIN, 0}, {over_.readEnd, POLLIN, 0}};
    while (poll(waited, 2, -1) < 0 && errno == EINTR) {
    }
    if (waited[1].revents != 0)
        return;
    // A cancel that comes before the run's first node, or after its last, finds nothing to cancel and says so.
    while (!cancel() && !over(20)) {
    }
}

bool InterruptWatcher::over(int milliseconds) const {
    pollfd waited{over_.readEnd, POLLIN, 0};
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
