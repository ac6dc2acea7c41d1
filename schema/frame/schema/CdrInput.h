// The CDR stream that a compiled file is read from.
#pragma once

#include <ace/CDR_Stream.h>
#include <ace/Message_Block.h>

#include <cstddef>
#include <span>

namespace schema {

// The block of such a stream, made without memory: the library wouldn't notice that there is none.
class CdrBlock {
protected:
    explicit CdrBlock(std::span<const char> bytes)
        : block_(bytes.size(), ACE_Message_Block::MB_DATA, bytes.empty() ? "" : bytes.data(), nullptr, nullptr,
                 ACE_Message_Block::DONT_DELETE, nullptr) {}

    ACE_Data_Block block_;
};

// The library's stream, which lets its reader step over bytes without a call: nearly all that a file holds is numbers of one
// or four bytes.
class CdrInput : private CdrBlock, public ACE_InputCDR {
public:
    explicit CdrInput(std::span<const char> bytes)
        : CdrBlock(bytes),
          ACE_InputCDR(&block_, ACE_Message_Block::DONT_DELETE, 0, bytes.size(), littleEndian, majorVersion, minorVersion) {}

    // The next bytes, stepped over; null if fewer are left.
    const char* take(std::size_t size) {
        if (size > start_.length()) return nullptr;
        const char* const bytes = start_.rd_ptr();
        start_.rd_ptr(size);
        return bytes;
    }

private:
    static constexpr int littleEndian = 1;
    static constexpr ACE_CDR::Octet majorVersion = 1;
    static constexpr ACE_CDR::Octet minorVersion = 2;
};

}  // namespace schema
