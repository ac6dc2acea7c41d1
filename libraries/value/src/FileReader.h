// Reads a stream by lines and by bytes.
#pragma once

#include <otx/value/Exceptions_e.h>

#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace otx {

// Takes from the stream's buffer what is there and no more, so that a slow stream isn't waited for longer than needed. Used by
// one thread at a time. Throws kind 35 for a stream that can't be read, kind 36 for what isn't there or is too large; what the
// stream throws as a COtxException goes on unchanged.
class FileReader {
public:
    // What one line or one run of bytes may hold at most.
    static constexpr std::size_t largestPiece = std::size_t{256} << 20;

    // The byte order mark at the beginning.
    enum class Mark { None, Utf8, Utf16BE, Utf16LE };

    // The name is for the words of failures. The stream stands at its beginning.
    FileReader(std::shared_ptr<std::istream> stream, std::string name);

    Mark mark() { return isMarkKnown_ ? mark_ : findMark(); }
    bool isAtBeginning() const noexcept { return base_ == 0 && next_ == 0; }
    // Whether there is nothing behind the next so many bytes, few.
    bool isAtEnd(std::size_t behind = 0) { return have(behind + 1) <= behind; }

    // Further bytes, less at the end.
    void skip(std::size_t count);

    // Up to so many bytes, all that are left for a negative count, from the byte of that index on, for a negative one from the
    // place. Back only where the stream can, and only there does a failure leave the place as it was.
    std::vector<unsigned char> takeBytes(std::int64_t index, std::int64_t count);
    // The bytes up to a line feed, which is skipped, or the end. They stay until the next operation.
    std::string_view takeLine();
    // The same by units of two bytes. At the end it may have half a unit.
    std::string_view takeWideLine(bool littleEndian);

private:
    // How many of the wanted bytes, few, are in the buffer after it was filled as far as needed.
    std::size_t have(std::size_t wanted) { return end_ - next_ >= wanted ? wanted : fill(wanted); }
    std::size_t fill(std::size_t wanted);
    Mark findMark();
    // Whether that place is one in the buffer, or its end.
    bool isHeld(std::int64_t index) const noexcept;
    void seek(std::int64_t index);
    bool readsUpTo(std::int64_t index);
    void moveTo(std::int64_t index);
    void returnTo(std::int64_t index);
    std::vector<unsigned char> bytesAhead(std::int64_t count);
    std::streambuf& source();
    void startLine();
    void addToLine(std::size_t bytes);
    [[noreturn]] void failNoByte(std::int64_t index) const;
    [[noreturn]] void failTooLarge() const;

    // Runs a piece of work on the stream, and gives its failures the kind of ours.
    template <class Work>
    auto guarded(Work work);

    const std::string name_;
    const std::shared_ptr<std::istream> stream_;
    std::vector<char> buffer_;
    std::int64_t base_ = 0;  // the index of the buffer's first byte in the file
    std::size_t next_ = 0;
    std::size_t end_ = 0;
    std::string line_;  // one that no buffer holds whole
    bool isMarkKnown_ = false;
    Mark mark_ = Mark::None;
};

// Throws that kind, the text led in by the name.
[[noreturn]] void failFile(OTX::Exceptions_e kind, const std::string& name, const std::string& reason);

}  // namespace otx
