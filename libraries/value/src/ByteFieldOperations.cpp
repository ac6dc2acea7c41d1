// The operations of OTX::IByteField.
#include <algorithm>
#include <string>
#include <vector>

#include "ByteFieldBehaviour.h"
#include "ByteFieldValues.h"
#include "Refusal.h"

namespace otx {

namespace {

[[noreturn]] void failBounds(const std::string& text) { fail(OTX::Exceptions_e::OutOfBoundsException, text); }

// The bytes of an operand, which is converted first unless it is a byte field.
std::vector<unsigned char> operand(const COtxValue& value) {
    if (value.Type() == OTX::ValueType::ByteField) return value.ByteField();
    return value.ToByteField().ByteField();
}

template <class Combine>
COtxValue combined(const std::vector<unsigned char>& left, const COtxValue& rightValue, Combine combine) {
    std::vector<unsigned char> right = operand(rightValue);
    std::vector<unsigned char> result = left;
    const std::size_t size = std::max(result.size(), right.size());
    result.insert(result.begin(), size - result.size(), 0);
    right.insert(right.begin(), size - right.size(), 0);
    std::transform(result.begin(), result.end(), right.begin(), result.begin(), combine);
    return makeByteField(std::move(result));
}

std::size_t checkedCount(const char* operation, int positions) {
    if (positions < 0) failBounds(std::string(operation) + ": negative number of positions " + std::to_string(positions));
    return static_cast<std::size_t>(positions);
}

}  // namespace

COtxValue ByteFieldBehaviour::Not() const {
    std::vector<unsigned char> result(size());
    std::transform(begin(), end(), result.begin(), [](unsigned char byte) { return static_cast<unsigned char>(~byte); });
    return makeByteField(std::move(result));
}

COtxValue ByteFieldBehaviour::And(const COtxValue& right) const {
    return combined(*this, right, [](unsigned a, unsigned b) { return static_cast<unsigned char>(a & b); });
}

COtxValue ByteFieldBehaviour::Or(const COtxValue& right) const {
    return combined(*this, right, [](unsigned a, unsigned b) { return static_cast<unsigned char>(a | b); });
}

COtxValue ByteFieldBehaviour::Xor(const COtxValue& right) const {
    return combined(*this, right, [](unsigned a, unsigned b) { return static_cast<unsigned char>(a ^ b); });
}

std::size_t ByteFieldBehaviour::checkedIndex(const char* operation, int index, int position) const {
    if (index < 0 || static_cast<std::size_t>(index) >= size())
        failBounds(std::string(operation) + ": index " + std::to_string(index) + " is outside the ByteField of " +
                   std::to_string(size()) + " bytes");
    if (position < 0 || position > 7)
        failBounds(std::string(operation) + ": position " + std::to_string(position) + " is outside the byte");
    return static_cast<std::size_t>(index);
}

void ByteFieldBehaviour::SetBit(int index, int position, bool value) {
    unsigned char& byte = (*this)[checkedIndex("SetBit", index, position)];
    const unsigned bit = 1u << position;
    byte = static_cast<unsigned char>(value ? byte | bit : byte & ~bit);
}

bool ByteFieldBehaviour::GetBit(int index, int position) const {
    return ((*this)[checkedIndex("GetBit", index, position)] >> position & 1) != 0;
}

void ByteFieldBehaviour::Clear() { std::fill(begin(), end(), static_cast<unsigned char>(0)); }

void ByteFieldBehaviour::ShiftLeft(int positions) {
    const std::size_t count = checkedCount("ShiftLeft", positions);
    const std::size_t bytes = count / 8;
    const unsigned bits = count % 8;
    for (std::size_t place = 0; place < size(); ++place) {
        const std::size_t from = place + bytes;
        const unsigned high = from < size() ? (*this)[from] : 0u;
        const unsigned low = from + 1 < size() ? (*this)[from + 1] : 0u;
        (*this)[place] = static_cast<unsigned char>((high << 8 | low) << bits >> 8);
    }
}

void ByteFieldBehaviour::ShiftRight(int positions) {
    const std::size_t count = checkedCount("ShiftRight", positions);
    const std::size_t bytes = count / 8;
    const unsigned bits = count % 8;
    for (std::size_t place = size(); place-- > 0;) {
        const unsigned low = place >= bytes ? (*this)[place - bytes] : 0u;
        const unsigned high = place >= bytes + 1 ? (*this)[place - bytes - 1] : 0u;
        (*this)[place] = static_cast<unsigned char>((high << 8 | low) >> bits);
    }
}

void ByteFieldBehaviour::ReplaceSubByteField(const COtxValue& replacement, int index) {
    if (index < 0 || static_cast<std::size_t>(index) > size())
        failBounds("ReplaceSubByteField: index " + std::to_string(index) + " is outside the ByteField of " +
                   std::to_string(size()) + " bytes");
    // A copy, since the replacement may be this field itself.
    const std::vector<unsigned char> written = replacement.ByteField();
    const auto first = static_cast<std::size_t>(index);
    if (first + written.size() > size()) resize(first + written.size());
    std::copy(written.begin(), written.end(), begin() + index);
}

void ByteFieldBehaviour::Append(const COtxValue& other) {
    // A copy, since it may be this field itself.
    const std::vector<unsigned char> appended = other.ByteField();
    insert(end(), appended.begin(), appended.end());
}

}  // namespace otx
