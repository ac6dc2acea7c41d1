// The handle of a file that is open for reading.
#include <otx/value/COtxFileReadHandle.h>

#include <cstring>
#include <mutex>
#include <optional>
#include <string_view>

#include "ByteFieldValues.h"
#include "FileReader.h"
#include "Make.h"
#include "NumberValues.h"
#include "StringBytes.h"
#include "TextValues.h"

namespace otx {

namespace {

using Encoding = COtxStringEncoding::Encoding;
using Kind = OTX::Exceptions_e;

// By words of eight bytes, the last of which may overlap the one before.
bool isAscii(std::string_view text) {
    std::uint64_t bits = 0;
    const auto take = [&bits](const char* from) {
        std::uint64_t word = 0;
        std::memcpy(&word, from, sizeof word);
        bits |= word;
    };
    if (text.size() < sizeof bits) {
        for (const char byte : text) bits |= static_cast<unsigned char>(byte);
    } else {
        for (std::size_t place = 0; place + sizeof bits <= text.size(); place += sizeof bits) take(text.data() + place);
        take(text.data() + text.size() - sizeof bits);
    }
    return (bits & 0x8080808080808080) == 0;
}

class FileReadHandleBehaviour final : public COtxValueBehaviour, public OTX::IFileHandle, public OTX::IFileReadHandle {
public:
    FileReadHandleBehaviour() : COtxValueBehaviour(OTX::ValueType::FileReadHandle) {}
    FileReadHandleBehaviour(const std::shared_ptr<std::istream>& stream, Encoding encoding, const COtxValue& path)
        : COtxValueBehaviour(OTX::ValueType::FileReadHandle), path_(path.String()), encoding_(encoding) {
        if (stream != nullptr) reader_.emplace(stream, path_);
    }

    COtxValue ToString() override { return makeText(path_); }
    OTX::IFileHandle& FileHandle() override { return *this; }
    OTX::IFileReadHandle& FileReadHandle() override { return *this; }
    const char* what() const override { return path_.c_str(); }

    void Close() override {
        const std::lock_guard guard(readerLock_);
        reader_.reset();
    }

    COtxValue IsEof() override {
        const std::lock_guard guard(readerLock_);
        return makeBoolean(isAtEndOfText(opened()));
    }

    COtxValue ReadBytes(std::int64_t index, std::int64_t count) override {
        const std::lock_guard guard(readerLock_);
        return makeByteField(opened().takeBytes(index, count));
    }

    COtxValue ReadLine() override {
        const std::lock_guard guard(readerLock_);
        FileReader& reader = opened();
        if (isAtEndOfText(reader)) failRead("the end is reached");
        if (const std::size_t mark = markAhead(reader)) reader.skip(mark);
        return makeText(isWide() ? wideLine(reader) : narrowLine(reader));
    }

private:
    [[noreturn]] void failRead(const std::string& reason) const { failFile(Kind::FileException, path_, reason); }

    FileReader& opened() {
        if (!reader_) failRead("it is not open");
        reader_->mark();
        return *reader_;
    }

    // Bytes of a mark that stands next and is no character.
    std::size_t markAhead(FileReader& reader) const {
        if (!reader.isAtBeginning()) return 0;
        const FileReader::Mark mark = reader.mark();
        if (encoding_ == Encoding::Utf8) return mark == FileReader::Mark::Utf8 ? 3 : 0;
        const bool isOrder = mark == FileReader::Mark::Utf16LE || mark == FileReader::Mark::Utf16BE;
        return encoding_ == Encoding::Utf16 && isOrder ? 2 : 0;
    }
    bool isAtEndOfText(FileReader& reader) const { return reader.isAtEnd(markAhead(reader)); }

    bool isWide() const {
        return encoding_ == Encoding::Utf16 || encoding_ == Encoding::Utf16BE || encoding_ == Encoding::Utf16LE;
    }

    std::string decoded(std::string_view line, Encoding order) const {
        try {
            return decodeText({line.begin(), line.end()}, order);
        } catch (const COtxValue&) {
            failFile(Kind::FileFormatException, path_, noTextIn(encoding_));
        }
    }

    std::string narrowLine(FileReader& reader) const {
        std::string_view line = reader.takeLine();
        if (line.ends_with('\r')) line.remove_suffix(1);
        // The most of what there is to read needs no decoding.
        if ((encoding_ == Encoding::Utf8 || encoding_ == Encoding::UsAscii) && isAscii(line)) return std::string(line);
        return decoded(line, encoding_);
    }

    // A mark tells the order of UTF-16 alone; where the order is named, it is a character like any other.
    std::string wideLine(FileReader& reader) const {
        Encoding order = encoding_;
        if (encoding_ == Encoding::Utf16)
            order = reader.mark() == FileReader::Mark::Utf16LE ? Encoding::Utf16LE : Encoding::Utf16BE;
        std::string text = decoded(reader.takeWideLine(order == Encoding::Utf16LE), order);
        if (!text.empty() && text.back() == '\r') text.pop_back();
        return text;
    }

    const std::string path_;
    const Encoding encoding_ = Encoding::Utf8;
    // Guards the reader; held while the stream is read, which is the host's.
    std::mutex readerLock_;
    std::optional<FileReader> reader_;
};

}  // namespace

}  // namespace otx

COtxFileReadHandle::COtxFileReadHandle() : COtxValue(otx::makeLinked<otx::FileReadHandleBehaviour>()) {}
COtxFileReadHandle::COtxFileReadHandle(std::shared_ptr<std::istream>& stream, COtxStringEncoding::Encoding encoding,
                                       const COtxValue& path)
    : COtxValue(otx::makeLinked<otx::FileReadHandleBehaviour>(stream, encoding, path)) {}
