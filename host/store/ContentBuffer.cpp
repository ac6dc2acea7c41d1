// What the streams of stored files have in common: a content that is read on, and a place in it.
#include "store/ContentBuffer.h"

#include <algorithm>

namespace velkotx::host {

ContentBuffer::int_type ContentBuffer::underflow() {
    const std::size_t count = readOn(bytes_.data(), bytes_.size());
    readUpTo_ += static_cast<std::int64_t>(count);
    setg(bytes_.data(), bytes_.data(), bytes_.data() + count);
    return count == 0 ? traits_type::eof() : traits_type::to_int_type(bytes_.front());
}

// What is not in the buffer is read past it.
std::streamsize ContentBuffer::xsgetn(char* target, std::streamsize wanted) {
    std::streamsize got = std::min<std::streamsize>(wanted, egptr() - gptr());
    std::copy(gptr(), gptr() + got, target);
    setg(eback(), gptr() + got, egptr());
    while (got < wanted) {
        const std::size_t count = readOn(target + got, static_cast<std::size_t>(wanted - got));
        if (count == 0)
            break;
        restartAt(readUpTo_ + static_cast<std::int64_t>(count));
        got += static_cast<std::streamsize>(count);
    }
    return got;
}

bool ContentBuffer::dropUpTo(std::int64_t place) {
    while (readUpTo_ < place) {
        if (traits_type::eq_int_type(underflow(), traits_type::eof()))
            return false;
    }
    setg(eback(), egptr() - (readUpTo_ - place), egptr());
    return true;
}

void ContentBuffer::restartAt(std::int64_t place) {
    readUpTo_ = place;
    setg(bytes_.data(), bytes_.data(), bytes_.data());
}

ContentBuffer::pos_type ContentBuffer::seekoff(off_type offset, std::ios_base::seekdir direction,
                                               std::ios_base::openmode which) {
    if (direction == std::ios_base::end)
        return pos_type(off_type(-1));
    const std::int64_t base = direction == std::ios_base::cur ? readUpTo_ - (egptr() - gptr()) : 0;
    return seekpos(base + offset, which);
}

ContentBuffer::pos_type ContentBuffer::seekpos(pos_type place, std::ios_base::openmode which) {
    const std::int64_t wanted = place;
    if (wanted < 0 || (which & std::ios_base::in) == 0)
        return pos_type(off_type(-1));
    if (wanted <= readUpTo_ && wanted >= readUpTo_ - (egptr() - eback()))
        setg(eback(), egptr() - (readUpTo_ - wanted), egptr());
    else if (!moveTo(wanted))
        return pos_type(off_type(-1));
    return place;
}

}  // namespace velkotx::host
