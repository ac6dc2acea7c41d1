// Reads the primitives of the compiled form over the CDR stream.
#include <schema/InputStream.h>

#include <schema/CdrInput.h>
#include <schema/DocumentOwner.h>
#include <schema/Limits.h>

#include <otx/Stack.h>

#include <xsd/cxx/tree/ace-cdr-stream-extraction.hxx>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <string>
#include <type_traits>

namespace schema {

namespace {

void extracted(bool done) {
    if (!done) throw xsd::cxx::tree::ace_cdr_stream_extraction();
}

template <typename T>
std::string textOf(T value) {
    if constexpr (std::is_same_v<T, bool>) {
        return value ? "true" : "false";
    } else {
        char text[64];
        return {text, std::to_chars(text, text + sizeof text, value).ptr};
    }
}

}  // namespace

InputStream::InputStream(CdrInput& stream, FieldListener* listener)
    : stream_(stream), begin_(stream.rd_ptr()), listener_(listener) {}

InputStream::Level::Level(InputStream& stream) : stream_(stream) {
    if (stream.depth_ >= maximumDepth) throw NestedTooDeep(NestedTooDeep::Limit::levels);
    if (otx::stackIsLow()) throw NestedTooDeep(NestedTooDeep::Limit::stack);
    otxns::StackUse::note();
    ++stream.depth_;
}

std::size_t InputStream::offset() const {
    return static_cast<std::size_t>(stream_.rd_ptr() - begin_);
}

template <typename Stored, typename T>
T InputStream::number(const char* role) {
    const std::size_t begin = offset();
    const std::size_t padding = (sizeof(Stored) - begin % sizeof(Stored)) % sizeof(Stored);
    const char* const place = stream_.take(padding + sizeof(Stored));
    extracted(place != nullptr);
    std::array<char, sizeof(Stored)> bytes;
    std::memcpy(bytes.data(), place + padding, bytes.size());
    if constexpr (std::endian::native == std::endian::big) std::reverse(bytes.begin(), bytes.end());
    T value;
    if constexpr (std::is_same_v<T, bool>)
        value = bytes[0] != 0;
    else
        value = std::bit_cast<T>(bytes);
    if (listener_ != nullptr) listener_->field({begin, begin + padding, offset(), role, textOf(value)});
    return value;
}

bool InputStream::readBoolean(const char* role) {
    return number<char, bool>(role);
}

std::int16_t InputStream::readShort(const char* role) {
    return number<std::int16_t>(role);
}

std::uint16_t InputStream::readUnsignedShort(const char* role) {
    return number<std::uint16_t>(role);
}

std::int32_t InputStream::readLong(const char* role) {
    return number<std::int32_t>(role);
}

std::uint32_t InputStream::readUnsignedLong(const char* role) {
    return number<std::uint32_t>(role);
}

std::int64_t InputStream::readLongLong() {
    return number<std::int64_t>("");
}

double InputStream::readDouble(const char* role) {
    return number<double>(role);
}

std::string_view InputStream::bytes(std::size_t size) {
    const char* const begin = stream_.take(size);
    extracted(begin != nullptr);
    return {begin, size};
}

std::string_view InputStream::readString(const char* role) {
    const std::size_t size = readUnsignedLong("length");
    extracted(size != 0);
    std::string_view text = bytes(size);
    extracted(text.back() == '\0');
    text.remove_suffix(1);
    if (listener_ != nullptr)
        listener_->field({offset() - size, offset() - size, offset(), role, std::string(text), true});
    return text;
}

std::string_view InputStream::readOctets() {
    const std::size_t size = readUnsignedLong("length");
    const std::string_view octets = bytes(size);
    if (listener_ != nullptr) listener_->field({offset() - size, offset() - size, offset(), "", {}});
    return octets;
}

std::uint32_t InputStream::readPooled(const char* role) {
    const std::uint32_t number = readUnsignedLong(role);
    if (number == 0) {
        pool_.push_back({readString(role)});
        return static_cast<std::uint32_t>(pool_.size());
    }
    extracted(number <= pool_.size());
    return number;
}

const RegisteredType& InputStream::readType() {
    const std::uint32_t space = readPooled("namespace");
    const std::uint32_t name = readPooled("type");
    PooledString& known = pool_[name - 1];
    if (known.type == nullptr || known.space != space) {
        const std::string spaceText(pool_[space - 1].text);
        const std::string nameText(known.text);
        known.type = findType(nameText, spaceText);
        known.space = space;
        if (known.type == nullptr) throw xsd::cxx::tree::no_type_info<char>(nameText, spaceText);
    }
    return *known.type;
}

}  // namespace schema
