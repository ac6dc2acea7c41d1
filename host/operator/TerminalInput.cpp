// The lines that are typed at a terminal.
#include "operator/TerminalInput.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace velkotx::host {

TerminalInput::TerminalInput(int descriptor) : descriptor_(descriptor), woken_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (woken_ < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
}

TerminalInput::~TerminalInput() {
    close(woken_);
}

void TerminalInput::wake() {
    eventfd_write(woken_, 1);
}

OperatorInput::Event TerminalInput::next(bool reads, std::optional<std::chrono::milliseconds> limit) {
    const int milliseconds = limit ? static_cast<int>(limit->count()) : -1;
    pollfd waited[] = {{woken_, POLLIN, 0}, {descriptor_, POLLIN, 0}};
    for (;;) {
        Event event;
        if (reads && takeLine(event.line)) {
            event.what = What::line;
            return event;
        }
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

bool TerminalInput::takeLine(std::string& line) {
    const std::size_t end = unread_.find('\n');
    if (end == std::string::npos)
        return false;
    line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
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
    return Event{isGone || isatty(descriptor_) != 1 ? What::gone : What::noAnswer, {}};
}

}  // namespace velkotx::host
