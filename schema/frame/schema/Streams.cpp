// Reads and writes the primitives of the compiled form over the CDR streams.
#include <schema/Streams.h>

#include <xsd/cxx/tree/ace-cdr-stream-extraction.hxx>
#include <xsd/cxx/tree/ace-cdr-stream-insertion.hxx>

#include <ace/CDR_Stream.h>

#include <limits>

namespace schema {

namespace {

void written(bool done) {
    if (!done) throw xsd::cxx::tree::ace_cdr_stream_insertion();
}

void extracted(bool done) {
    if (!done) throw xsd::cxx::tree::ace_cdr_stream_extraction();
}

std::uint32_t length(std::size_t count) {
    written(count <= std::numeric_limits<std::uint32_t>::max());
    return static_cast<std::uint32_t>(count);
}

}  // namespace

void OutputStream::align(std::size_t size) {
    for (; offset_ % size != 0; ++offset_) written(stream_.write_octet(0));
    offset_ += size;
}

void OutputStream::writeBoolean(bool value) {
    align(1);
    written(stream_.write_boolean(value));
}

void OutputStream::writeShort(std::int16_t value) {
    align(2);
    written(stream_.write_short(value));
}

void OutputStream::writeUnsignedShort(std::uint16_t value) {
    align(2);
    written(stream_.write_ushort(value));
}

void OutputStream::writeLong(std::int32_t value) {
    align(4);
    written(stream_.write_long(value));
}

void OutputStream::writeUnsignedLong(std::uint32_t value) {
    align(4);
    written(stream_.write_ulong(value));
}

void OutputStream::writeLongLong(std::int64_t value) {
    align(8);
    written(stream_.write_longlong(value));
}

void OutputStream::writeDouble(double value) {
    align(8);
    written(stream_.write_double(value));
}

void OutputStream::writeString(const std::string& value) {
    writeUnsignedLong(length(value.size() + 1));
    written(stream_.write_char_array(value.c_str(), length(value.size() + 1)));
    offset_ += value.size() + 1;
}

void OutputStream::writeOctets(const char* data, std::size_t size) {
    writeUnsignedLong(length(size));
    offset_ += size;
    written(size == 0 || stream_.write_octet_array(reinterpret_cast<const ACE_CDR::Octet*>(data), length(size)));
}

void OutputStream::writePooled(const std::string& value) {
    const auto [entry, isNew] = pool_.emplace(value, static_cast<std::uint32_t>(pool_.size() + 1));
    writeUnsignedLong(isNew ? 0 : entry->second);
    if (isNew) writeString(value);
}

void OutputStream::writeCount(std::size_t count) {
    writeUnsignedLong(length(count));
}

bool InputStream::readBoolean() {
    ACE_CDR::Boolean value = false;
    extracted(stream_.read_boolean(value));
    return value;
}

std::int16_t InputStream::readShort() {
    ACE_CDR::Short value = 0;
    extracted(stream_.read_short(value));
    return value;
}

std::uint16_t InputStream::readUnsignedShort() {
    ACE_CDR::UShort value = 0;
    extracted(stream_.read_ushort(value));
    return value;
}

std::int32_t InputStream::readLong() {
    ACE_CDR::Long value = 0;
    extracted(stream_.read_long(value));
    return value;
}

std::uint32_t InputStream::readUnsignedLong() {
    ACE_CDR::ULong value = 0;
    extracted(stream_.read_ulong(value));
    return value;
}

std::int64_t InputStream::readLongLong() {
    ACE_CDR::LongLong value = 0;
    extracted(stream_.read_longlong(value));
    return value;
}

double InputStream::readDouble() {
    ACE_CDR::Double value = 0.0;
    extracted(stream_.read_double(value));
    return value;
}

std::string InputStream::readBytes(std::size_t size) {
    extracted(size <= stream_.length());
    std::string bytes(size, '\0');
    extracted(size == 0 || stream_.read_char_array(bytes.data(), static_cast<ACE_CDR::ULong>(size)));
    return bytes;
}

std::string InputStream::readString() {
    const std::size_t size = readUnsignedLong();
    extracted(size != 0);
    std::string text = readBytes(size);
    extracted(text.back() == '\0');
    text.pop_back();
    return text;
}

std::vector<char> InputStream::readOctets() {
    const std::string bytes = readBytes(readUnsignedLong());
    return {bytes.begin(), bytes.end()};
}

const std::string& InputStream::readPooled() {
    const std::uint32_t number = readUnsignedLong();
    if (number == 0) return pool_.emplace_back(readString());
    extracted(number <= pool_.size());
    return pool_[number - 1];
}

}  // namespace schema
