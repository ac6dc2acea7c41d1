// Reads a stream by lines and by bytes.
#include "FileReader.h"

#include <otx/value/COtxValue.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "Refusal.h"

namespace otx {

namespace {

using Kind = OTX::Exceptions_e;

constexpr std::size_t bufferSize = 32768;
constexpr auto endOfStream = std::streambuf::traits_type::eof();

}  // namespace

void failFile(OTX::Exceptions_e kind, const std::string& name, const std::string& reason) {
    fail(kind, "File '" + name + "': " + reason);
}

FileReader::FileReader(std::shared_ptr<std::istream> stream, std::string name)
    : name_(std::move(name)), stream_(std::move(stream)), buffer_(bufferSize) {}

template <class Work>
auto FileReader::guarded(Work work) {
    try {
        return work();
    } catch (const COtxValue&) {
        throw;
    } catch (const std::exception& failure) {
        failFile(Kind::FileAccessException, name_, std::string("it can't be read: ") + failure.what());
    }
}

std::streambuf& FileReader::source() {
    std::streambuf* const source = stream_->rdbuf();
    if (source == nullptr || stream_->fail()) failFile(Kind::FileAccessException, name_, "it can't be read");
    return *source;
}

std::size_t FileReader::fill(std::size_t wanted) {
    std::streambuf& from = source();
    if (next_ > 0) {
        std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(next_), buffer_.begin() + static_cast<std::ptrdiff_t>(end_),
                  buffer_.begin());
        base_ += static_cast<std::int64_t>(next_);
        end_ -= next_;
        next_ = 0;
    }
    return guarded([&] {
        while (end_ < wanted) {
            // What is there at once, else what the next byte brings with it.
            if (from.in_avail() <= 0 && from.sgetc() == endOfStream) break;
            const auto room = static_cast<std::streamsize>(buffer_.size() - end_);
            const std::streamsize ready = std::clamp<std::streamsize>(from.in_avail(), 1, room);
            const std::streamsize got = from.sgetn(buffer_.data() + end_, ready);
            if (got <= 0) break;
            end_ += static_cast<std::size_t>(got);
        }
        return std::min(end_, wanted);
    });
}

FileReader::Mark FileReader::findMark() {
    const std::string_view first(buffer_.data() + next_, have(3));
    isMarkKnown_ = true;
    if (!isAtBeginning()) return mark_;
    if (first.starts_with("\xEF\xBB\xBF")) mark_ = Mark::Utf8;
    if (first.starts_with("\xFE\xFF")) mark_ = Mark::Utf16BE;
    if (first.starts_with("\xFF\xFE")) mark_ = Mark::Utf16LE;
    return mark_;
}

void FileReader::skip(std::size_t count) { next_ += have(count); }

bool FileReader::isHeld(std::int64_t index) const noexcept {
    return index >= base_ && index - base_ <= static_cast<std::int64_t>(end_);
}

void FileReader::seek(std::int64_t index) {
    std::streambuf& from = source();
    // To the byte ahead, which tells whether the file goes so far.
    const std::int64_t ahead = std::max<std::int64_t>(index - 1, 0);
    if (!guarded([&] { return from.pubseekpos(ahead, std::ios::in) == std::streampos(ahead); })) return;
    base_ = ahead;
    next_ = end_ = 0;
}

bool FileReader::readsUpTo(std::int64_t index) {
    while (index > base_ && !isHeld(index)) {
        next_ = end_;
        if (fill(1) == 0) break;
    }
    if (!isHeld(index)) return false;
    next_ = static_cast<std::size_t>(index - base_);
    return true;
}

void FileReader::moveTo(std::int64_t index) {
    if (!isHeld(index)) seek(index);
    if (!readsUpTo(index)) failNoByte(index);
}

// What fails on the way back isn't told: it follows another failure.
void FileReader::returnTo(std::int64_t index) {
    try {
        // In any case: a stream that was told to go too far needn't stand where it did.
        seek(index);
        readsUpTo(index);
    } catch (const COtxValue&) {
    }
}

void FileReader::failNoByte(std::int64_t index) const {
    failFile(Kind::FileException, name_, index < 0 ? "the end is reached" : "there is no byte " + std::to_string(index));
}

void FileReader::failTooLarge() const {
    failFile(Kind::FileException, name_, "more than " + std::to_string(largestPiece) + " bytes at once");
}

std::vector<unsigned char> FileReader::takeBytes(std::int64_t index, std::int64_t count) {
    mark();
    const std::int64_t before = base_ + static_cast<std::int64_t>(next_);
    try {
        if (index >= 0) moveTo(index);
        if (count != 0 && isAtEnd()) failNoByte(index);
        return bytesAhead(count);
    } catch (const COtxValue&) {
        returnTo(before);
        throw;
    }
}

std::vector<unsigned char> FileReader::bytesAhead(std::int64_t count) {
    std::vector<unsigned char> bytes;
    while (count != 0 && have(1) > 0) {
        std::size_t piece = end_ - next_;
        if (count > 0) piece = static_cast<std::size_t>(std::min(count, static_cast<std::int64_t>(piece)));
        if (bytes.size() + piece > largestPiece) failTooLarge();
        const auto from = buffer_.begin() + static_cast<std::ptrdiff_t>(next_);
        bytes.insert(bytes.end(), from, from + static_cast<std::ptrdiff_t>(piece));
        next_ += piece;
        if (count > 0) count -= static_cast<std::int64_t>(piece);
    }
    return bytes;
}

// Gives back what a long line took.
void FileReader::startLine() {
    if (line_.capacity() > bufferSize) line_ = std::string();
    line_.clear();
}

void FileReader::addToLine(std::size_t bytes) {
    if (line_.size() + bytes > largestPiece) failTooLarge();
    line_.append(buffer_.data() + next_, bytes);
    next_ += bytes;
}

std::string_view FileReader::takeLine() {
    startLine();
    while (have(1) > 0) {
        const char* const from = buffer_.data() + next_;
        const auto* const feed = static_cast<const char*>(std::memchr(from, '\n', end_ - next_));
        if (feed == nullptr) {
            addToLine(end_ - next_);
            continue;
        }
        const auto bytes = static_cast<std::size_t>(feed - from);
        if (line_.empty()) {
            next_ += bytes + 1;
            return {from, bytes};
        }
        addToLine(bytes);
        ++next_;
        break;
    }
    return line_;
}

std::string_view FileReader::takeWideLine(bool littleEndian) {
    const std::string_view feed = littleEndian ? std::string_view("\n\0", 2) : std::string_view("\0\n", 2);
    startLine();
    while (const std::size_t bytes = have(2)) {
        if (std::string_view(buffer_.data() + next_, bytes) == feed) {
            next_ += bytes;
            break;
        }
        addToLine(bytes);
    }
    return line_;
}

}  // namespace otx
