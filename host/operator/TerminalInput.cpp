// The lines that are typed at a terminal.
#include "operator/TerminalInput.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <ostream>
#include <system_error>

namespace velkotx::host {

namespace {

// A program that was stopped finds the terminal as the shell has left it.
std::atomic<int> wokenByContinuation{-1};

void continued(int) {
    const int before = errno;
    if (const int woken = wokenByContinuation; woken >= 0)
        eventfd_write(woken, 1);
    errno = before;
}

}  // namespace

TerminalInput::TerminalInput(int descriptor, std::ostream* echo)
    : descriptor_(descriptor), echo_(echo), woken_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (woken_ < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
}

TerminalInput::~TerminalInput() {
    restore();
    if (isPrepared_) {
        sigaction(SIGCONT, &formerAnswer_, nullptr);
        wokenByContinuation = -1;
    }
    close(woken_);
}

// A job in the background would be stopped for a change of the terminal, which the shell has then.
bool TerminalInput::isOurs() const {
    const pid_t group = tcgetpgrp(descriptor_);
    return group < 0 || group == getpgrp();
}

void TerminalInput::prepare() {
    if (echo_ == nullptr)
        return;
    const std::lock_guard guard(modeLock_);
    termios mode{};
    if (staysAsItWas_ || !isOurs() || tcgetattr(descriptor_, &mode) != 0 || (former_ && (mode.c_lflag & ICANON) == 0))
        return;
    former_ = mode;
    mode.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | IEXTEN);
    mode.c_cc[VMIN] = 1;
    mode.c_cc[VTIME] = 0;
    tcsetattr(descriptor_, TCSANOW, &mode);
    noticeContinuation();
}

void TerminalInput::noticeContinuation() {
    if (isPrepared_)
        return;
    isPrepared_ = true;
    wokenByContinuation = woken_;
    struct sigaction answer {};
    answer.sa_handler = continued;
    answer.sa_flags = SA_RESTART;
    sigaction(SIGCONT, &answer, &formerAnswer_);
}

void TerminalInput::restore() {
    const std::lock_guard guard(modeLock_);
    staysAsItWas_ = true;
    if (former_ && isOurs())
        tcsetattr(descriptor_, TCSANOW, &*former_);
    former_.reset();
}

bool TerminalInput::discard() {
    pollfd terminal{descriptor_, POLLIN, 0};
    const bool hasMore = descriptor_ >= 0 && poll(&terminal, 1, 0) > 0 && (terminal.revents & POLLHUP) == 0;
    if (hasMore)
        tcflush(descriptor_, TCIFLUSH);
    const bool hadAny = hasMore || !unread_.empty() || !editor_.text().empty();
    unread_.clear();
    editor_ = LineEditor();
    return hadAny;
}

void TerminalInput::wake() {
    eventfd_write(woken_, 1);
}

OperatorInput::Event TerminalInput::next(bool reads, std::optional<std::chrono::milliseconds> limit) {
    const int milliseconds = limit ? static_cast<int>(limit->count()) : -1;
    pollfd waited[] = {{woken_, POLLIN, 0}, {descriptor_, POLLIN, 0}};
    for (;;) {
        Event event;
        if (reads && (isPrepared_ ? takeEdited(event) : takeLine(event)))
            return event;
        const int count = poll(waited, reads && descriptor_ >= 0 ? 2 : 1, milliseconds);
        if (count < 0)
            continue;  // a signal
        if (count == 0)
            return {};
        if (waited[0].revents != 0) {  // news come ahead of what was typed without them
            eventfd_t ignored = 0;
            eventfd_read(woken_, &ignored);
            return {};
        }
        if (const auto end = readMore())
            return *end;
    }
}

bool TerminalInput::takeLine(Event& event) {
    const std::size_t end = unread_.find('\n');
    if (end == std::string::npos)
        return false;
    event = {What::line, unread_.substr(0, end)};
    unread_.erase(0, end + 1);
    return true;
}

bool TerminalInput::takeEdited(Event& event) {
    std::string echo;
    std::size_t taken = 0;
    LineEditor::Key key = LineEditor::Key::none;
    while (key == LineEditor::Key::none && taken < unread_.size()) {
        const LineEditor::Typed typed = editor_.type(unread_[taken++]);
        key = typed.key;
        echo += typed.echo;
    }
    unread_.erase(0, taken);
    *echo_ << echo << std::flush;
    if (key == LineEditor::Key::none)
        return false;
    event = key == LineEditor::Key::enter ? Event{What::line, editor_.take()} : Event{What::noAnswer, {}};
    return true;
}

// The end of the input, if that is what there is.
std::optional<OperatorInput::Event> TerminalInput::readMore() {
    char piece[4096];
    const ssize_t size = read(descriptor_, piece, sizeof piece);
    if (size < 0 && (errno == EINTR || errno == EAGAIN))
        return {};
    if (size < 0)
        return Event{What::gone, {}};
    if (size > 0) {
        unread_.append(piece, static_cast<std::size_t>(size));
        return {};
    }
    unread_.clear();
    // A terminal that was hung up has nothing to read for ever.
    pollfd terminal{descriptor_, POLLIN, 0};
    const bool isGone = poll(&terminal, 1, 0) > 0 && (terminal.revents & POLLHUP) != 0;
    return Event{isGone || isPrepared_ || isatty(descriptor_) != 1 ? What::gone : What::noAnswer, {}};
}

}  // namespace velkotx::host
