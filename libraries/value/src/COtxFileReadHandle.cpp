// The handle of a file that is open for reading.
#include <otx/value/COtxFileReadHandle.h>

#include <algorithm>
#include <istream>
#include <limits>
#include <mutex>
#include <optional>

#include "ByteFieldValues.h"
#include "Make.h"
#include "NumberValues.h"
#include "Refusal.h"
#include "StringBytes.h"
#include "TextValues.h"

namespace otx {

namespace {

using Encoding = COtxStringEncoding::Encoding;

class FileReadHandleBehaviour final : public COtxValueBehaviour, public OTX::IFileHandle, public OTX::IFileReadHandle {
public:
    FileReadHandleBehaviour() : COtxValueBehaviour(OTX::ValueType::FileReadHandle) {}
    FileReadHandleBehaviour(const std::shared_ptr<std::istream>& stream, Encoding encoding, const COtxValue& path)
        : COtxValueBehaviour(OTX::ValueType::FileReadHandle), path_(path.String()), encoding_(encoding),
          stream_(stream) {}

    COtxValue ToString() override { return makeText(path_); }
    OTX::IFileHandle& FileHandle() override { return *this; }
    OTX::IFileReadHandle& FileReadHandle() override { return *this; }
    const char* what() const override { return path_.c_str(); }

    void Close() override {
        const std::lock_guard guard(streamLock_);
        stream_.reset();
    }

    COtxValue IsEof() override {
        const std::lock_guard guard(streamLock_);
        return makeBoolean(isAtEnd(opened()));
    }

    COtxValue ReadBytes(std::int64_t index, std::int64_t count) override {
        const std::lock_guard guard(streamLock_);
        std::istream& stream = opened();
        if (index >= 0) {
            stream.clear();
            stream.seekg(index);
            if (!stream) failFile("there is no byte " + std::to_string(index));
        }
        if (count == 0) return makeByteField({});
        if (isAtEnd(stream)) failFile("the end is reached");
        return makeByteField(count < 0 ? readAll(stream) : readSome(stream, count));
    }

    COtxValue ReadLine() override {
        const std::lock_guard guard(streamLock_);
        std::istream& stream = opened();
        const bool isWide =
            encoding_ == Encoding::Utf16 || encoding_ == Encoding::Utf16BE || encoding_ == Encoding::Utf16LE;
        const Encoding encoding = isWide ? byteOrder(stream) : encoding_;
        if (isAtEnd(stream)) failFile("the end is reached");
        return makeText(isWide ? readWideLine(stream, encoding) : readNarrowLine(stream, encoding));
    }

private:
    [[noreturn]] void failFile(const std::string& reason) const {
        fail(OTX::Exceptions_e::FileException, "File '" + path_ + "': " + reason);
    }

    std::istream& opened() {
        if (stream_ == nullptr) failFile("it is not open");
        return *stream_;
    }

    bool isAtEnd(std::istream& stream) const {
        const bool atEnd = stream.peek() == std::istream::traits_type::eof();
        if (stream.bad()) failFile("it can't be read");
        return atEnd;
    }

    static std::vector<unsigned char> readAll(std::istream& stream) {
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    // By pieces, since the count may be far above what the file has.
    static std::vector<unsigned char> readSome(std::istream& stream, std::int64_t count) {
        constexpr std::int64_t piece = 65536;
        std::vector<unsigned char> bytes;
        while (count > 0 && stream) {
            const std::size_t have = bytes.size();
            const std::int64_t wanted = std::min(count, piece);
            bytes.resize(have + static_cast<std::size_t>(wanted));
            stream.read(reinterpret_cast<char*>(bytes.data() + have), wanted);
            bytes.resize(have + static_cast<std::size_t>(stream.gcount()));
            count -= wanted;
        }
        return bytes;
    }

    // The byte order that the mark at the file's beginning tells; skips the mark.
    Encoding byteOrder(std::istream& stream) {
        if (encoding_ != Encoding::Utf16) return encoding_;
        if (!order_) {
            order_ = Encoding::Utf16BE;
            const auto place = stream.tellg();
            if (place == std::istream::pos_type(0)) {
                char mark[2]{};
                stream.read(mark, 2);
                const bool little = mark[0] == '\xFF' && mark[1] == '\xFE';
                const bool big = mark[0] == '\xFE' && mark[1] == '\xFF';
                if (little) order_ = Encoding::Utf16LE;
                if (!little && !big) {
                    stream.clear();
                    stream.seekg(place);
                }
            }
        }
        return *order_;
    }

    static std::string readNarrowLine(std::istream& stream, Encoding encoding) {
        std::string line;
        std::getline(stream, line);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        return decodeText({line.begin(), line.end()}, encoding);
    }

    static std::string readWideLine(std::istream& stream, Encoding encoding) {
        const std::size_t low = encoding == Encoding::Utf16LE ? 0 : 1;
        std::vector<unsigned char> line;
        for (char unit[2]; stream.read(unit, 2);) {
            if (unit[low] == '\n' && unit[1 - low] == 0) break;
            line.push_back(static_cast<unsigned char>(unit[0]));
            line.push_back(static_cast<unsigned char>(unit[1]));
        }
        // Half a unit at the end is no text.
        if (stream.gcount() == 1) line.push_back(0);
        std::string text = decodeText(line, encoding);
        if (!text.empty() && text.back() == '\r') text.pop_back();
        return text;
    }

    const std::string path_;
    const Encoding encoding_ = Encoding::Utf8;
    // Guards the stream and order_.
    std::mutex streamLock_;
    std::shared_ptr<std::istream> stream_;
    std::optional<Encoding> order_;
};

}  // namespace

}  // namespace otx

COtxFileReadHandle::COtxFileReadHandle() : COtxValue(otx::makeLinked<otx::FileReadHandleBehaviour>()) {}
COtxFileReadHandle::COtxFileReadHandle(std::shared_ptr<std::istream>& stream, COtxStringEncoding::Encoding encoding,
                                       const COtxValue& path)
    : COtxValue(otx::makeLinked<otx::FileReadHandleBehaviour>(stream, encoding, path)) {}
