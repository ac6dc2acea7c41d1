// Writes lines to a descriptor, whole or not at all, and moves files away that have grown.
#include "LineFile.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <system_error>

namespace Hvt {

namespace {

// Not waiting, so that a pipe without a reader is refused instead of waited for.
int openFile(const std::string& path) noexcept {
    constexpr mode_t mode = 0666;
    return ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
}

// Waits for a descriptor that doesn't take more just now.
bool waitFor(int descriptor) noexcept {
    pollfd waited{descriptor, POLLOUT, 0};
    return ::poll(&waited, 1, -1) > 0 || errno == EINTR;
}

}  // namespace

LineFile::LineFile() noexcept : descriptor_(STDERR_FILENO) {}

LineFile::LineFile(const LogFile& file) : file_(file), descriptor_(openFile(file.path)) {
    if (descriptor_ < 0) throw std::runtime_error(file.path + ": " + std::generic_category().message(errno));
    takeDescriptor(descriptor_);
    endLastLine();
}

LineFile::~LineFile() {
    if (descriptor_ != STDERR_FILENO) ::close(descriptor_);
}

void LineFile::takeDescriptor(int descriptor) noexcept {
    descriptor_ = descriptor;
    struct stat status {};
    isRegular_ = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    size_ = isRegular_ ? static_cast<std::uint64_t>(status.st_size) : 0;
    rotateAbove_ = file_.limit;
}

// A process that was killed may have left half a line, into which the first new one would run.
void LineFile::endLastLine() noexcept {
    if (size_ == 0) return;
    const int reading = ::open(file_.path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (reading < 0) return;
    char last = '\n';
    const bool isRead = ::pread(reading, &last, 1, static_cast<off_t>(size_ - 1)) == 1;
    ::close(reading);
    if (isRead && last != '\n' && ::write(descriptor_, "\n", 1) == 1) ++size_;
}

bool LineFile::write(const std::string& line) noexcept {
    const bool isLimited = isRegular_ && file_.limit > 0;
    if (isLimited && size_ > 0 && size_ + line.size() > rotateAbove_) rotate();
    return writeWhole(line);
}

bool LineFile::writeWhole(const std::string& line) noexcept {
    std::size_t written = 0;
    while (written < line.size()) {
        const ssize_t taken = ::write(descriptor_, line.data() + written, line.size() - written);
        if (taken >= 0) {
            written += static_cast<std::size_t>(taken);
            continue;
        }
        if (errno == EINTR || ((errno == EAGAIN || errno == EWOULDBLOCK) && waitFor(descriptor_))) continue;
        if (isRegular_ && written > 0 && !takeBack(written)) size_ += written;
        return false;
    }
    size_ += written;
    return true;
}

// Half a line would run into the next one. What another process has added behind it must stay, though.
bool LineFile::takeBack(std::size_t written) noexcept {
    const off_t end = ::lseek(descriptor_, 0, SEEK_CUR);
    struct stat status {};
    const bool isLast = end >= 0 && ::fstat(descriptor_, &status) == 0 && status.st_size == end;
    return isLast && ::ftruncate(descriptor_, end - static_cast<off_t>(written)) == 0;
}

void LineFile::sync() noexcept {
    if (isRegular_) static_cast<void>(::fdatasync(descriptor_));
}

void LineFile::rotate() noexcept {
    if (file_.kept == 0) {
        if (::ftruncate(descriptor_, 0) == 0) size_ = 0;
        return;
    }
    // A file that stays where it is is moved when it has grown by as much again.
    if (!moveAway()) rotateAbove_ = size_ + file_.limit;
}

bool LineFile::moveAway() noexcept {
    try {
        const auto numbered = [&](unsigned number) { return file_.path + '.' + std::to_string(number); };
        for (unsigned number = file_.kept; number > 1; --number)
            std::rename(numbered(number - 1).c_str(), numbered(number).c_str());
        const std::string first = numbered(1);
        if (std::rename(file_.path.c_str(), first.c_str()) != 0) return false;
        const int fresh = openFile(file_.path);
        if (fresh < 0) {
            std::rename(first.c_str(), file_.path.c_str());
            return false;
        }
        ::close(descriptor_);
        takeDescriptor(fresh);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace Hvt
