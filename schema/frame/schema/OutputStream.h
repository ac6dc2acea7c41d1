// Writes the primitives of the compiled form: little-endian CDR, and the pool of type names.
#pragma once

#include <schema/Registry.h>
#include <schema/Runtime.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <unordered_map>

class ACE_OutputCDR;

namespace schema {

// Writes one file: the bytes are gathered here and handed to the CDR stream in pieces, since its own operations leave in the
// padding what their memory held before. Every operation throws the runtime's ace_cdr_stream_insertion when the stream
// refuses.
class OutputStream {
public:
    explicit OutputStream(ACE_OutputCDR& stream);
    OutputStream(const OutputStream&) = delete;
    OutputStream& operator=(const OutputStream&) = delete;

    void writeBoolean(bool value) { put<char>(value ? 1 : 0); }
    void writeShort(std::int16_t value);
    void writeUnsignedShort(std::uint16_t value);
    void writeLong(std::int32_t value);
    void writeUnsignedLong(std::uint32_t value) { put(value); }
    void writeLongLong(std::int64_t value);
    void writeDouble(double value);
    void writeString(const std::string& value);
    void writeOctets(const char* data, std::size_t size);
    void writeCount(std::size_t count);
    // Hands over what is left; the file is whole only then.
    void flush();

    // The registered type of a class. Throws no_type_info for a class that isn't registered.
    const RegisteredType& typeOf(const std::type_info& identity) { return *knownType(identity).type; }
    // Writes the namespace and the name of that type, each in full at its first use in the file, later only its number; the
    // numbers count from 1.
    const RegisteredType& writeType(const std::type_info& identity);

private:
    // A class met in this file; its names' numbers are 0 until they have been written.
    struct KnownType {
        const RegisteredType* type;
        std::uint32_t space;
        std::uint32_t name;
    };

    KnownType& knownType(const std::type_info& identity) {
        constexpr std::uint64_t spread = 0x9E3779B97F4A7C15;
        const std::uint64_t hash = reinterpret_cast<std::uintptr_t>(&identity) * spread;
        Recent& recent = recent_[hash >> (64 - std::bit_width(recentCount - 1))];
        if (recent.identity != &identity) recent = {&identity, &findKnownType(identity)};
        return *recent.type;
    }
    KnownType& findKnownType(const std::type_info& identity);
    std::uint32_t writePooled(const std::string& value);
    // A number in little-endian order, behind zeros up to a border of its size.
    template <typename T>
    void put(T value);
    void put(const char* bytes, std::size_t size);

    ACE_OutputCDR& stream_;
    std::array<char, 4096> buffer_;
    std::size_t used_ = 0;
    // Bytes handed over so far.
    std::size_t offset_ = 0;
    std::map<std::string, std::uint32_t> pool_;
    // By address: the same class under another address is only looked up again.
    std::unordered_map<const std::type_info*, KnownType> types_;
    // Those met last, by a part of the address.
    struct Recent {
        const std::type_info* identity = nullptr;
        KnownType* type = nullptr;
    };
    static constexpr std::size_t recentCount = 512;
    std::array<Recent, recentCount> recent_{};
};

template <typename T>
void OutputStream::put(T value) {
    const std::size_t padding = (sizeof value - (offset_ + used_) % sizeof value) % sizeof value;
    if (used_ + padding + sizeof value > buffer_.size()) flush();
    std::memset(buffer_.data() + used_, 0, padding);
    used_ += padding;
    std::array<char, sizeof value> bytes;
    std::memcpy(bytes.data(), &value, sizeof value);
    if constexpr (std::endian::native == std::endian::big) std::reverse(bytes.begin(), bytes.end());
    std::memcpy(buffer_.data() + used_, bytes.data(), sizeof value);
    used_ += sizeof value;
}

}  // namespace schema
