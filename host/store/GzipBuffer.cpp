// The content of a file that is packed with gzip, unpacked with zlib.
#include "store/GzipBuffer.h"

#include "store/BeneathFolder.h"

#include <zlib.h>

#include <array>
#include <new>

namespace velkotx::host {

// The packed bytes, and how far they are unpacked. Not to be moved: the library keeps its address.
struct GzipBuffer::Inflation {
    Inflation() {
        // The largest window, and a gzip header only.
        if (inflateInit2(&stream, 15 + 16) != Z_OK)
            throw std::bad_alloc();
    }
    Inflation(const Inflation&) = delete;
    Inflation& operator=(const Inflation&) = delete;
    ~Inflation() { inflateEnd(&stream); }

    // Whether there are packed bytes, after having read some if need be.
    bool hasInput(const OpenFile& file) {
        if (stream.avail_in == 0) {
            const std::size_t count = readAt(file, place, packed.data(), packed.size());
            place += static_cast<std::int64_t>(count);
            stream.next_in = reinterpret_cast<Bytef*>(packed.data());
            stream.avail_in = static_cast<uInt>(count);
        }
        return stream.avail_in > 0;
    }

    z_stream stream{};
    std::array<char, 32768> packed;
    std::int64_t place = 0;      // in the file, behind the packed bytes
    bool isInMember = false;     // else at the beginning, or behind the end of a member
    bool hadMember = false;
};

GzipBuffer::GzipBuffer(std::shared_ptr<const OpenFile> file)
    : file_(std::move(file)), inflation_(std::make_unique<Inflation>()) {}

GzipBuffer::~GzipBuffer() = default;

std::size_t GzipBuffer::readOn(char* target, std::size_t room) {
    const auto fail = [this](const char* reason) {
        failStore(OTX::Exceptions_e::FileFormatException, file_->name, reason);
    };
    z_stream& stream = inflation_->stream;
    stream.next_out = reinterpret_cast<Bytef*>(target);
    stream.avail_out = static_cast<uInt>(room);
    while (stream.avail_out == room) {
        if (!inflation_->hasInput(*file_)) {
            if (inflation_->isInMember || !inflation_->hadMember)
                fail("the packed content breaks off");
            return 0;
        }
        inflation_->isInMember = true;
        const int result = inflate(&stream, Z_NO_FLUSH);
        if (result == Z_STREAM_END) {
            inflation_->isInMember = false;
            inflation_->hadMember = true;
            inflateReset(&stream);
        } else if (result == Z_MEM_ERROR) {
            throw std::bad_alloc();
        } else if (result != Z_OK) {
            fail("the packed content is damaged");
        }
    }
    return room - stream.avail_out;
}

bool GzipBuffer::moveTo(std::int64_t place) {
    if (place < readUpTo()) {
        inflation_ = std::make_unique<Inflation>();
        restartAt(0);
    }
    return dropUpTo(place);
}

}  // namespace velkotx::host
