// Writes the primitives of the compiled form over the CDR stream.
#include <schema/OutputStream.h>

#include <xsd/cxx/tree/ace-cdr-stream-insertion.hxx>

#include <ace/CDR_Stream.h>

#include <cstring>
#include <limits>

namespace schema {

namespace {

void written(bool done) {
    if (!done) throw xsd::cxx::tree::ace_cdr_stream_insertion();
}

std::uint32_t length(std::size_t count) {
    written(count <= std::numeric_limits<std::uint32_t>::max());
    return static_cast<std::uint32_t>(count);
}

}  // namespace

OutputStream::OutputStream(ACE_OutputCDR& stream) : stream_(stream) {}

void OutputStream::put(const char* bytes, std::size_t size) {
    if (size > buffer_.size() - used_) flush();
    if (size <= buffer_.size()) {
        std::memcpy(buffer_.data() + used_, bytes, size);
        used_ += size;
        return;
    }
    written(stream_.write_char_array(bytes, length(size)));
    offset_ += size;
}

void OutputStream::flush() {
    written(used_ == 0 || stream_.write_char_array(buffer_.data(), length(used_)));
    offset_ += used_;
    used_ = 0;
}

void OutputStream::writeShort(std::int16_t value) {
    put(value);
}

void OutputStream::writeUnsignedShort(std::uint16_t value) {
    put(value);
}

void OutputStream::writeLong(std::int32_t value) {
    put(value);
}

void OutputStream::writeLongLong(std::int64_t value) {
    put(value);
}

void OutputStream::writeDouble(double value) {
    put(value);
}

void OutputStream::writeString(const std::string& value) {
    put(length(value.size() + 1));
    put(value.c_str(), value.size() + 1);
}

void OutputStream::writeOctets(const char* data, std::size_t size) {
    put(length(size));
    if (size != 0) put(data, size);
}

void OutputStream::writeCount(std::size_t count) {
    writeUnsignedLong(length(count));
}

OutputStream::KnownType& OutputStream::findKnownType(const std::type_info& identity) {
    const auto known = types_.find(&identity);
    if (known != types_.end()) return known->second;
    const RegisteredType* const registered = findType(identity);
    if (registered == nullptr) throw xsd::cxx::tree::no_type_info<char>(identity.name(), "");
    return types_.emplace(&identity, KnownType{registered, 0, 0}).first->second;
}

const RegisteredType& OutputStream::writeType(const std::type_info& identity) {
    KnownType& known = knownType(identity);
    if (known.name != 0) {
        writeUnsignedLong(known.space);
        writeUnsignedLong(known.name);
        return *known.type;
    }
    known.space = writePooled(known.type->name.space);
    known.name = writePooled(known.type->name.name);
    return *known.type;
}

std::uint32_t OutputStream::writePooled(const std::string& value) {
    const auto [entry, isNew] = pool_.emplace(value, static_cast<std::uint32_t>(pool_.size() + 1));
    writeUnsignedLong(isNew ? 0 : entry->second);
    if (isNew) writeString(value);
    return entry->second;
}

}  // namespace schema
