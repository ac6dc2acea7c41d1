// The Float value.
#include <otx/value/COtxFloat.h>

#include <cmath>

#include "ByteFieldValues.h"
#include "IntegerBytes.h"
#include "JsonWriter.h"
#include "Make.h"
#include "NativeBehaviour.h"
#include "Numbers.h"
#include "NumberValues.h"
#include "QuantityValues.h"
#include "TextValues.h"

#include <otx/value/Json.h>

namespace otx {

namespace {

class FloatBehaviour final : public NativeBehaviour<FloatBehaviour> {
public:
    FloatBehaviour(double value, int precision)
        : NativeBehaviour(OTX::ValueType::Float, Native::Float, Scalar{.real = value}), precision_(precision) {}

    COtxValue Multiply(const COtxValue& right) override { return calculate(Operation::Multiply, *this, right); }
    COtxValue Divide(const COtxValue& right) override { return calculate(Operation::Divide, *this, right); }
    COtxValue Add(const COtxValue& right) override { return calculate(Operation::Add, *this, right); }
    COtxValue Subtract(const COtxValue& right) override { return calculate(Operation::Subtract, *this, right); }
    COtxValue Modulo(const COtxValue& right) override { return calculate(Operation::Modulo, *this, right); }
    COtxValue Abs() override { return makeFloat(absolute(scalar().real), precision_); }

    COtxValue ToBoolean() override { return makeBoolean(scalar().real != 0); }
    COtxValue ToInteger() override { return makeInteger(truncated(scalar().real)); }
    COtxValue ToString() override { return makeText(floatText(scalar().real)); }
    COtxValue ToHexBinaryString() override { return makeText(hexText(bytesOf(scalar().real))); }
    COtxValue ToFloat() override { return makeFloat(scalar().real, precision_); }
    COtxValue ToByteField() override { return makeByteField(bytesOf(scalar().real)); }
    COtxValue ToQuantity() override { return makeQuantity(scalar().real, precision_); }

    COtxValue ToJSONObject(Value2IdMap& conversion) override {
        if (std::isfinite(scalar().real)) return makeFloat(scalar().real, precision_);
        if (!conversion.OtxForm()) return COtxValue();
        return taggedJson(Type(), ToString());
    }
    // Only the JSON of what is no number depends on the flag, which could change.
    COtxValue Copy(const COtxValue& self, OTX::CopyMap&) const override {
        return std::isfinite(scalar().real) ? self : makeFloat(scalar().real, precision_);
    }

    double Float() const override { return scalar().real; }
    int Precision() const override { return precision_; }
    const char* what() const override { return lastingText(makeText(floatText(scalar().real))); }

    bool equalTo(const COtxValueBehaviour& right) const { return compareNumbers(*this, right) == 0; }
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const { return compareNumbers(*this, right); }

private:
    const int precision_;
};

}  // namespace

COtxValue makeFloat(double value, int precision) { return makePlain<FloatBehaviour>(value, precision); }

}  // namespace otx

COtxFloat::COtxFloat(double value, int precision) : COtxValue(otx::makeFloat(value, precision)) {}
