// What the streams of stored files have in common: a content that is read on, and a place in it.
#pragma once

#include <array>
#include <cstdint>
#include <streambuf>

namespace velkotx::host {

// Seeks from the beginning or the present place, for reading. Used by one thread at a time.
class ContentBuffer : public std::streambuf {
protected:
    ContentBuffer() = default;

    // Further bytes of the content; 0 at its end.
    virtual std::size_t readOn(char* target, std::size_t room) = 0;
    // To a place in the content, which is none that the buffer holds. False for one that isn't there.
    virtual bool moveTo(std::int64_t place) = 0;

    // Where readOn goes on.
    std::int64_t readUpTo() const noexcept { return readUpTo_; }
    // Reads on up to that place, or the end, and drops the content.
    bool dropUpTo(std::int64_t place);
    // Goes on from there, with nothing in the buffer.
    void restartAt(std::int64_t place);

private:
    int_type underflow() override;
    std::streamsize xsgetn(char* target, std::streamsize wanted) override;
    pos_type seekoff(off_type offset, std::ios_base::seekdir direction, std::ios_base::openmode which) override;
    pos_type seekpos(pos_type place, std::ios_base::openmode which) override;

    std::array<char, 65536> bytes_;
    std::int64_t readUpTo_ = 0;
};

}  // namespace velkotx::host
