// The content of a file as it is.
#include "store/PlainBuffer.h"

#include "store/BeneathFolder.h"

#include <sys/stat.h>

#include <cerrno>
#include <limits>
#include <system_error>

namespace velkotx::host {

std::size_t readAt(const OpenFile& file, std::int64_t place, char* target, std::size_t room) {
    // No file goes further than the system counts.
    if (place > std::numeric_limits<std::int64_t>::max() - static_cast<std::int64_t>(room))
        return 0;
    ssize_t count = 0;
    do {
        count = pread(file.file.number(), target, room, place);
    } while (count < 0 && errno == EINTR);
    if (count < 0)
        failStore(OTX::Exceptions_e::FileAccessException, file.name, std::generic_category().message(errno));
    return static_cast<std::size_t>(count);
}

std::size_t PlainBuffer::readOn(char* target, std::size_t room) { return readAt(*file_, readUpTo(), target, room); }

// A file is there at once, up to its present end.
std::streamsize PlainBuffer::showmanyc() {
    struct stat status {};
    return fstat(file_->file.number(), &status) == 0 ? status.st_size - readUpTo() : 0;
}

bool PlainBuffer::moveTo(std::int64_t place) {
    restartAt(place);
    return true;
}

}  // namespace velkotx::host
