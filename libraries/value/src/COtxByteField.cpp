// The ByteField value.
#include <otx/value/COtxByteField.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>

#include "ByteFieldBehaviour.h"
#include "ByteFieldValues.h"
#include "IntegerBytes.h"
#include "JsonWriter.h"
#include "Make.h"
#include "NumberValues.h"
#include "Refusal.h"
#include "StringBytes.h"
#include "TextValues.h"

#include <otx/value/Json.h>

namespace otx {

namespace {

const std::vector<unsigned char>& bytesBehind(const COtxValueBehaviour& behaviour) {
    return static_cast<const ByteFieldBehaviour&>(behaviour);
}

std::vector<unsigned char> lowestBits(const unsigned char* bytes, int size, int bits) {
    if (size < 0 || (bytes == nullptr && size > 0) || bits > static_cast<long long>(size) * 8)
        fail(OTX::Exceptions_e::OutOfBoundsException, "A ByteField of " + std::to_string(size) +
                                                          " bytes can't be made with " + std::to_string(bits) + " bits");
    std::vector<unsigned char> field(bytes, bytes + size);
    if (bits >= 0) {
        const std::size_t unused = field.size() - static_cast<std::size_t>(bits + 7) / 8;
        std::fill_n(field.begin(), unused, static_cast<unsigned char>(0));
        if (bits % 8 != 0) field[unused] = static_cast<unsigned char>(field[unused] & ((1u << bits % 8) - 1));
    }
    return field;
}

}  // namespace

COtxValue makeByteField(std::vector<unsigned char> bytes) { return makePlain<ByteFieldBehaviour>(std::move(bytes)); }

std::string hexText(const std::vector<unsigned char>& bytes) { return decodeText(bytes, COtxStringEncoding::Hex); }

ByteFieldBehaviour::ByteFieldBehaviour(std::vector<unsigned char>&& bytes)
    : std::vector<unsigned char>(std::move(bytes)),
      NativeBehaviour(OTX::ValueType::ByteField, Native::ByteField, Scalar{0}) {}

COtxValue ByteFieldBehaviour::ToBoolean() {
    return makeBoolean(std::any_of(begin(), end(), [](unsigned char byte) { return byte != 0; }));
}

COtxValue ByteFieldBehaviour::ToInteger() {
    if (size() > 8)
        fail(OTX::Exceptions_e::TypeMismatchException,
             "ToInteger of a ByteField of " + std::to_string(size()) + " bytes: more than 8");
    std::uint64_t number = 0;
    for (const unsigned char byte : *this) number = number << 8 | byte;
    if (number > static_cast<std::uint64_t>(std::numeric_limits<long long>::max()))
        fail(OTX::Exceptions_e::ArithmeticException, "ToInteger of ByteField " + hexText(*this) + ": beyond 64 bits");
    return makeInteger(static_cast<long long>(number));
}

COtxValue ByteFieldBehaviour::ToFloat() {
    std::uint64_t number = 0;
    if (size() != 4 && size() != 8)
        fail(OTX::Exceptions_e::TypeMismatchException,
             "ToFloat of a ByteField of " + std::to_string(size()) + " bytes: neither 4 nor 8");
    for (const unsigned char byte : *this) number = number << 8 | byte;
    if (size() == 8) return makeFloat(std::bit_cast<double>(number));
    return makeFloat(static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(number))));
}

COtxValue ByteFieldBehaviour::ToString() { return makeText(hexText(*this)); }
COtxValue ByteFieldBehaviour::ToHexBinaryString() { return ToString(); }
COtxValue ByteFieldBehaviour::ToByteField() { return makeByteField(*this); }

COtxValue ByteFieldBehaviour::ToJSONObject(Value2IdMap& conversion) {
    const COtxValue digits = makeText(hexText(*this));
    return conversion.OtxForm() ? taggedJson(Type(), digits) : digits;
}

const char* ByteFieldBehaviour::what() const { return lastingText(makeText(hexText(*this))); }

COtxValue ByteFieldBehaviour::Copy(const COtxValue&, OTX::CopyMap&) const { return makeByteField(*this); }

bool ByteFieldBehaviour::equalTo(const COtxValueBehaviour& right) const {
    return bytesBehind(*this) == bytesBehind(right);
}

std::weak_ordering ByteFieldBehaviour::compareWith(const COtxValueBehaviour& right) const {
    return bytesBehind(*this) <=> bytesBehind(right);
}

}  // namespace otx

COtxByteField::COtxByteField() : COtxValue(otx::makeByteField({})) {}
COtxByteField::COtxByteField(const std::vector<unsigned char>& bytes) : COtxValue(otx::makeByteField(bytes)) {}
COtxByteField::COtxByteField(std::vector<unsigned char>&& bytes) : COtxValue(otx::makeByteField(std::move(bytes))) {}
COtxByteField::COtxByteField(const unsigned char* bytes, int size, OTX::Encoding, int bits)
    : COtxValue(otx::makeByteField(otx::lowestBits(bytes, size, bits))) {}
COtxByteField::COtxByteField(const long long& value, const int& bits, OTX::Encoding encoding,
                             OTX::Endianness endianness)
    : COtxValue(otx::makeByteField(otx::encodeInteger(value, bits, encoding, endianness))) {}
COtxByteField::COtxByteField(const std::string& text, COtxStringEncoding::Encoding encoding)
    : COtxValue(otx::makeByteField(otx::encodeText(text, encoding))) {}
