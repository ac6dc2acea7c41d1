// The Integer value.
#include <otx/value/COtxInt.h>

#include <limits>

#include "ByteFieldValues.h"
#include "Enumerations.h"
#include "IntBehaviour.h"
#include "IntegerBytes.h"
#include "JsonWriter.h"
#include "Make.h"
#include "Numbers.h"
#include "NumberValues.h"
#include "Order.h"
#include "QuantityValues.h"
#include "Refusal.h"
#include "TextValues.h"

#include <otx/value/Json.h>

using otx::calculate;
using otx::Operation;

namespace otx {

COtxValue makeInteger(long long value, COtxInt::Radix radix) { return makePlain<IntegerBehaviour>(value, radix); }

}  // namespace otx

COtxInt::COtxInt(long long value, Radix radix) : COtxValue(otx::makeInteger(value, radix)) {}

COtxInt::COtxInt(const std::vector<unsigned char>& bytes, int bits, OTX::Encoding encoding, OTX::Endianness endianness,
                 Radix radix)
    : COtxValue(otx::makeInteger(otx::decodeInteger(bytes, bits, encoding, endianness), radix)) {}

COtxIntBehaviour::COtxIntBehaviour(long long value, COtxInt::Radix radix, OTX::ValueType type)
    : COtxValueBehaviour(type, Native::None, Scalar{.integer = value}), radix_(radix) {}

COtxIntBehaviour::COtxIntBehaviour(long long value, COtxInt::Radix radix, Native native)
    : COtxValueBehaviour(OTX::ValueType::Integer, native, Scalar{.integer = value}), radix_(radix) {}

bool COtxIntBehaviour::operator==(const COtxValueBehaviour* other) const {
    return otx::compareFamilies(this, other) == 0 && otx::compareNumbers(*this, *other) == 0;
}

bool COtxIntBehaviour::IsEqual(const COtxValue& right) const { return *this == right.GetBehaviourReference().get(); }

bool COtxIntBehaviour::IsLessThan(const COtxValue& right) const {
    const COtxValueBehaviour* const other = right.GetBehaviourReference().get();
    if (const auto order = otx::compareFamilies(this, other); order != 0) return order < 0;
    return otx::compareNumbers(*this, *other) < 0;
}

COtxValue COtxIntBehaviour::Multiply(const COtxValue& right) { return calculate(Operation::Multiply, *this, right); }
COtxValue COtxIntBehaviour::Divide(const COtxValue& right) { return calculate(Operation::Divide, *this, right); }
COtxValue COtxIntBehaviour::Add(const COtxValue& right) { return calculate(Operation::Add, *this, right); }
COtxValue COtxIntBehaviour::Subtract(const COtxValue& right) { return calculate(Operation::Subtract, *this, right); }
COtxValue COtxIntBehaviour::Modulo(const COtxValue& right) { return calculate(Operation::Modulo, *this, right); }

COtxValue COtxIntBehaviour::Abs() {
    const long long value = Int();
    if (value == std::numeric_limits<long long>::min())
        otx::fail(OTX::Exceptions_e::ArithmeticException,
                  "Abs of " + std::to_string(value) + ": the result is beyond 64 bits");
    return otx::makeInteger(value < 0 ? -value : value);
}

COtxValue COtxIntBehaviour::ToBoolean() { return otx::makeBoolean(Int() != 0); }
COtxValue COtxIntBehaviour::ToInteger() { return otx::makeInteger(Int(), radix_); }
COtxValue COtxIntBehaviour::ToString() { return otx::makeText(std::to_string(Int())); }
COtxValue COtxIntBehaviour::ToHexBinaryString() { return otx::makeText(otx::hexText(otx::bytesOf(Int()))); }
COtxValue COtxIntBehaviour::ToFloat() { return otx::makeFloat(static_cast<double>(Int())); }
COtxValue COtxIntBehaviour::ToByteField() { return otx::makeByteField(otx::bytesOf(Int())); }
COtxValue COtxIntBehaviour::ToQuantity() { return otx::makeQuantity(static_cast<double>(Int())); }

COtxValue COtxIntBehaviour::ToJSONObject(Value2IdMap& conversion) {
    if (Type() == OTX::ValueType::Integer) return otx::makeInteger(Int(), radix_);
    return COtxValueBehaviour::ToJSONObject(conversion);
}

COtxValue COtxIntBehaviour::ToJSONObject() { return COtxValueBehaviour::ToJSONObject(); }

bool COtxIntBehaviour::IsInt() const { return true; }
long long COtxIntBehaviour::Int() const { return scalar().integer; }

const char* COtxIntBehaviour::what() const { return otx::lastingText(const_cast<COtxIntBehaviour&>(*this).ToString()); }

COtxValue COtxIntBehaviour::Copy(const COtxValue& self, OTX::CopyMap&) const {
    // A plain Integer has nothing that could change.
    if (Type() == OTX::ValueType::Integer) return self;
    return otx::makeEnumeration(Type(), Int(), self.ToString().String());
}
