// The compiled form's streams: primitives in little-endian CDR, and the pool of type names.
#pragma once

#include <schema/Runtime.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

class ACE_OutputCDR;
class ACE_InputCDR;

namespace schema {

// Writes one file. Every operation throws the runtime's ace_cdr_stream_insertion when the stream refuses.
class OutputStream {
public:
    explicit OutputStream(ACE_OutputCDR& stream) : stream_(stream) {}
    OutputStream(const OutputStream&) = delete;
    OutputStream& operator=(const OutputStream&) = delete;

    void writeBoolean(bool value);
    void writeShort(std::int16_t value);
    void writeUnsignedShort(std::uint16_t value);
    void writeLong(std::int32_t value);
    void writeUnsignedLong(std::uint32_t value);
    void writeLongLong(std::int64_t value);
    void writeDouble(double value);
    void writeString(const std::string& value);
    void writeOctets(const char* data, std::size_t size);
    // The string itself at its first use, later only its number; numbers count from 1.
    void writePooled(const std::string& value);
    void writeCount(std::size_t count);

private:
    // Fills up to the border of a number's size with zeros, where the stream itself would leave what its memory held,
    // and counts the number.
    void align(std::size_t size);

    ACE_OutputCDR& stream_;
    // Bytes written so far. The stream could tell, but walks over all its blocks to know.
    std::size_t offset_ = 0;
    std::map<std::string, std::uint32_t> pool_;
};

// Reads one file. Every operation throws the runtime's ace_cdr_stream_extraction when the bytes don't hold what is asked
// for; no length is believed before it is compared with the bytes that are left.
class InputStream {
public:
    explicit InputStream(ACE_InputCDR& stream) : stream_(stream) {}
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    bool readBoolean();
    std::int16_t readShort();
    std::uint16_t readUnsignedShort();
    std::int32_t readLong();
    std::uint32_t readUnsignedLong();
    std::int64_t readLongLong();
    double readDouble();
    std::string readString();
    std::vector<char> readOctets();
    const std::string& readPooled();

private:
    std::string readBytes(std::size_t size);

    ACE_InputCDR& stream_;
    std::vector<std::string> pool_;
};

}  // namespace schema
