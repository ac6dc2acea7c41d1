// The Quantity value.
#include <otx/value/COtxQuantity.h>

#include "JsonWriter.h"
#include "Make.h"
#include "NativeBehaviour.h"
#include "Numbers.h"
#include "NumberValues.h"
#include "QuantityValues.h"
#include "Refusal.h"
#include "TextValues.h"

#include <otx/value/COtxMap.h>
#include <otx/value/Json.h>

namespace otx {

namespace {

class QuantityBehaviour final : public NativeBehaviour<QuantityBehaviour>, public OTX::IQuantity {
public:
    // The unit is a Unit.
    QuantityBehaviour(double value, const COtxValue& unit, int precision)
        : NativeBehaviour(OTX::ValueType::Quantity), value_(value), unit_(unit), precision_(precision) {}

    COtxValue ToBoolean() override { return makeBoolean(value_ != 0); }
    COtxValue ToInteger() override { return makeInteger(truncated(value_)); }
    COtxValue ToFloat() override { return makeFloat(value_, precision_); }
    COtxValue ToString() override { return makeText(text()); }
    COtxValue ToQuantity() override { return COtxQuantity(value_, unit_, precision_); }
    COtxValue ToJSONObject(Value2IdMap& conversion) override {
        if (!conversion.OtxForm()) return makeText(text());
        const std::map<const std::string, COtxValue> members{{"value", makeFloat(value_)},
                                                             {"unit", makeText(unit_.Unit().Name())},
                                                             {"precision", makeInteger(precision_)}};
        return taggedJson(Type(), COtxMap(members));
    }
    int Precision() const override { return precision_; }
    OTX::IQuantity& Quantity() override { return *this; }
    const char* what() const override { return lastingText(makeText(text())); }
    COtxValue Copy(const COtxValue&, OTX::CopyMap&) const override {
        return COtxQuantity(value_, COtxUnit(unit_.Unit().Name()), precision_);
    }

    COtxValue GetDisplayValue() const override { return makeFloat(value_, precision_); }
    COtxValue GetDisplayUnit() const override { return unit_; }
    int GetPrecision() const override { return precision_; }
    COtxValue GetBaseUnit() const override { refuse("GetBaseUnit", Type()); }
    COtxValue Localize() const override { refuse("Localize", Type()); }
    COtxValue Localize(const std::string&) const override { refuse("Localize", Type()); }

    bool equalTo(const COtxValueBehaviour& right) const { return compareWith(right) == 0; }
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const {
        const auto& other = static_cast<const QuantityBehaviour&>(right);
        if (const auto order = unit_.Unit().Name() <=> other.unit_.Unit().Name(); order != 0) return order;
        return compareNumbers(value_, other.value_);
    }

private:
    std::string text() const {
        const std::string& unit = unit_.Unit().Name();
        return unit.empty() ? floatText(value_) : floatText(value_) + " " + unit;
    }

    const double value_;
    const COtxValue unit_;
    const int precision_;
};

double numberOf(const COtxValue& value) {
    if (value.Type() == OTX::ValueType::Quantity) return value.Quantity().GetDisplayValue().Float();
    if (value.Type() == OTX::ValueType::Float) return value.Float();
    return static_cast<double>(value.Int());
}

COtxValue makeWithUnit(double value, const COtxValue& unit, int precision) {
    if (unit.Type() != OTX::ValueType::Unit) refuse("Unit", unit.Type());
    return makePlain<QuantityBehaviour>(value, unit, precision);
}

}  // namespace

COtxValue makeQuantity(double value, int precision) { return makeWithUnit(value, COtxUnit(), precision); }

}  // namespace otx

COtxQuantity::COtxQuantity(double value, const COtxValue& unit, int precision)
    : COtxValue(otx::makeWithUnit(value, unit, precision)) {}
COtxQuantity::COtxQuantity(const COtxValue& value, const COtxValue& unit, int precision)
    : COtxValue(otx::makeWithUnit(otx::numberOf(value), unit, precision)) {}
