// Writes the primitives of the compiled form over the CDR stream.
#include <schema/OutputStream.h>

#include <xsd/cxx/tree/ace-cdr-stream-insertion.hxx>

#include <ace/CDR_Stream.h>

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

void OutputStream::align(std::size_t size) {
    for (; offset_ % size != 0; ++offset_) written(stream_.write_octet(0));
    offset_ += size;
}

void OutputStream::writeBoolean(bool value) {
    ++offset_;
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
    const std::uint32_t size = length(value.size() + 1);
    writeUnsignedLong(size);
    written(stream_.write_char_array(value.c_str(), size));
    offset_ += size;
}

void OutputStream::writeOctets(const char* data, std::size_t size) {
    writeUnsignedLong(length(size));
    offset_ += size;
    written(size == 0 || stream_.write_octet_array(reinterpret_cast<const ACE_CDR::Octet*>(data), length(size)));
}

void OutputStream::writeCount(std::size_t count) {
    writeUnsignedLong(length(count));
}

OutputStream::KnownType& OutputStream::knownType(const std::type_info& identity) {
    const auto known = types_.find(&identity);
    if (known != types_.end()) return known->second;
    const RegisteredType* const registered = findType(identity);
    if (registered == nullptr) throw xsd::cxx::tree::no_type_info<char>(identity.name(), "");
    return types_.emplace(&identity, KnownType{registered, 0, 0}).first->second;
}

void OutputStream::writeType(const std::type_info& identity) {
    KnownType& known = knownType(identity);
    if (known.name != 0) {
        writeUnsignedLong(known.space);
        writeUnsignedLong(known.name);
        return;
    }
    known.space = writePooled(known.type->name.space);
    known.name = writePooled(known.type->name.name);
}

std::uint32_t OutputStream::writePooled(const std::string& value) {
    const auto [entry, isNew] = pool_.emplace(value, static_cast<std::uint32_t>(pool_.size() + 1));
    writeUnsignedLong(isNew ? 0 : entry->second);
    if (isNew) writeString(value);
    return entry->second;
}

}  // namespace schema
