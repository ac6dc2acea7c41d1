// Lines whose reader can be called off.
#include "program/script/InterruptibleLines.h"

#include "program/Inputs.h"
#include "program/UsageError.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace velkotx::host {

namespace {

[[noreturn]] void refuse(const std::string& name, int systemError) {
    throw UsageError(name + ": " + std::generic_category().message(systemError));
}

int openInput(const std::string& name) {
    // A named pipe is to be had at once, whether or not somebody writes to it yet.
    const int input = open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (input < 0)
        refuse(name, errno);
    struct stat kind {};
    if (fstat(input, &kind) == 0 && S_ISDIR(kind.st_mode)) {
        close(input);
        refuse(name, EISDIR);
    }
    return input;
}

}  // namespace

InterruptibleLines::InterruptibleLines(Inputs& inputs, const std::string& name) : isStandardInput_(name == "-") {
    if (isStandardInput_)
        inputs.takeStandardInput();
    input_ = isStandardInput_ ? STDIN_FILENO : openInput(name);
    struct stat kind {};
    isFile_ = fstat(input_, &kind) == 0 && S_ISREG(kind.st_mode);
    calledOff_ = eventfd(0, EFD_CLOEXEC);
    if (calledOff_ < 0)
        refuse(name, errno);
}

InterruptibleLines::~InterruptibleLines() {
    if (!isStandardInput_)
        close(input_);
    close(calledOff_);
}

void InterruptibleLines::callOff() {
    eventfd_write(calledOff_, 1);
}

std::optional<std::string> InterruptibleLines::next() {
    std::size_t searched = 0;
    for (;;) {
        const std::size_t end = unread_.find('\n', searched);
        if (end != std::string::npos) {
            std::string line = unread_.substr(0, end);
            unread_.erase(0, end + 1);
            return line;
        }
        searched = unread_.size();
        if (!readMore())
            break;
    }
    if (!atEnd_ || unread_.empty())
        return {};
    std::string last;
    last.swap(unread_);
    return last;
}

// False at the end and when called off.
bool InterruptibleLines::readMore() {
    pollfd waited[] = {{input_, POLLIN, 0}, {calledOff_, POLLIN, 0}};
    for (;;) {
        if (!isFile_) {
            if (poll(waited, 2, -1) < 0)
                continue;  // a signal
            if (waited[1].revents != 0)
                return false;
        }
        char piece[4096];
        const ssize_t size = read(input_, piece, sizeof piece);
        if (size < 0 && (errno == EINTR || errno == EAGAIN))
            continue;
        atEnd_ = size <= 0;
        if (!atEnd_)
            unread_.append(piece, static_cast<std::size_t>(size));
        return !atEnd_;
    }
}

}  // namespace velkotx::host
