// The Quantity value.
#include <otx/value/COtxQuantity.h>

#include "JsonWriter.h"
#include "Make.h"
#include "NativeBehaviour.h"
#include "Numbers.h"
#include "NumberValues.h"
#include "QuantityArithmetic.h"
#include "QuantityConversion.h"
#include "QuantityOrder.h"
#include "QuantityValues.h"
#include "Refusal.h"
#include "TextValues.h"
#include "UnitValues.h"
#include "unit/BaseUnit.h"

#include <otx/value/COtxMap.h>
#include <otx/value/Json.h>

#include <cmath>
#include <typeinfo>

namespace otx {

namespace {

class QuantityBehaviour final : public NativeBehaviour<QuantityBehaviour>, public OTX::IQuantity {
public:
    // The unit is a Unit.
    explicit QuantityBehaviour(QuantityData data)
        : NativeBehaviour(OTX::ValueType::Quantity), data_(std::move(data)) {}

    COtxValue Multiply(const COtxValue& right) override { return calculate(Operation::Multiply, data_, Type(), right); }
    COtxValue Divide(const COtxValue& right) override { return calculate(Operation::Divide, data_, Type(), right); }
    COtxValue Add(const COtxValue& right) override { return calculate(Operation::Add, data_, Type(), right); }
    COtxValue Subtract(const COtxValue& right) override { return calculate(Operation::Subtract, data_, Type(), right); }
    COtxValue Modulo(const COtxValue& right) override { return calculate(Operation::Modulo, data_, Type(), right); }
    COtxValue Abs() override { return makeQuantity({absolute(data_.number), data_.unit, data_.precision}); }

    COtxValue ToBoolean() override { return makeBoolean(data_.number != 0); }
    COtxValue ToInteger() override { return makeInteger(truncated(data_.number)); }
    COtxValue ToFloat() override { return makeFloat(data_.number, data_.precision); }
    COtxValue ToString() override { return makeText(text(floatText(data_.number, data_.precision))); }
    COtxValue ToQuantity() override { return makeQuantity(data_); }
    COtxValue ToJSONObject(Value2IdMap& conversion) override {
        if (!conversion.OtxForm()) return makeText(text(floatText(data_.number)));
        const std::map<const std::string, COtxValue> members{{"value", makeFloat(data_.number)},
                                                             {"unit", makeText(unitName(data_.unit))},
                                                             {"precision", makeInteger(data_.precision)}};
        return taggedJson(Type(), COtxMap(members));
    }
    int Precision() const override { return data_.precision; }
    OTX::IQuantity& Quantity() override { return *this; }
    const char* what() const override { return lastingText(makeText(text(floatText(data_.number, data_.precision)))); }
    COtxValue Copy(const COtxValue&, OTX::CopyMap&) const override {
        return makeQuantity({data_.number, COtxUnit(unitName(data_.unit)), data_.precision});
    }

    COtxValue GetDisplayValue() const override { return makeFloat(data_.number, data_.precision); }
    COtxValue GetDisplayUnit() const override { return data_.unit; }
    int GetPrecision() const override { return data_.precision; }
    COtxValue GetBaseUnit() const override { return COtxUnit(baseUnitName(neededTerms(data_.unit))); }
    COtxValue Localize() const override { return Localize("metric"); }
    COtxValue Localize(const std::string& unitGroup) const override {
        return makeQuantity(localized(data_, unitGroup));
    }

    const QuantityData& data() const noexcept { return data_; }

    bool equalTo(const COtxValueBehaviour& right) const { return compareWith(right) == 0; }
    // A quantity without a dimension is of the family of numbers.
    std::weak_ordering compareWith(const COtxValueBehaviour& right) const {
        const QuantityData* const other = ownQuantity(right);
        return other != nullptr ? compareQuantities(data_, *other) : compareNumbers(*this, right);
    }

private:
    std::string text(std::string number) const {
        const std::string& unit = unitName(data_.unit);
        return unit.empty() ? number : number + " " + unit;
    }

    const QuantityData data_;
};

QuantityData dataOf(const COtxValue& value) {
    std::optional<QuantityData> data = quantityData(value);
    if (!data) refuse("ToQuantity", value.Type());
    return *std::move(data);
}

const COtxValue& checked(const COtxValue& unit) {
    if (unit.Type() != OTX::ValueType::Unit) refuse("Unit", unit.Type());
    // A host's unit may refuse.
    static_cast<void>(unit.Unit());
    return unit;
}

QuantityData withUnit(const COtxValue& value, const COtxValue& unit, int precision) {
    checked(unit);
    const QuantityData data = dataOf(value);
    // A number that has no unit yet takes the new one, and keeps its digits when it loses its own.
    const bool converts = !unitName(data.unit).empty() && !unitName(unit).empty();
    return {converts ? numberInUnit(data, unit) : data.number, unit, precision};
}

bool isComparedAsQuantity(const COtxValue& left, const COtxValue& right) {
    return left.Type() == OTX::ValueType::Quantity || right.Type() == OTX::ValueType::Quantity;
}

}  // namespace

COtxValue makeQuantity(const QuantityData& data) {
    if (data.isPlain()) return makeQuantity({data.number, COtxUnit(), data.precision});
    return makePlain<QuantityBehaviour>(data);
}

COtxValue makeQuantity(double value, int precision) { return makeQuantity({value, COtxUnit(), precision}); }

std::optional<QuantityData> quantityData(const COtxValue& value) {
    const COtxValueBehaviour* const behaviour = value.GetBehaviourReference().get();
    if (behaviour == nullptr) return {};
    if (const QuantityData* const own = ownQuantity(*behaviour)) return *own;
    if (value.Type() == OTX::ValueType::Quantity) {
        const OTX::IQuantity& quantity = value.Quantity();
        return QuantityData{quantity.GetDisplayValue().ToFloat().Float(), quantity.GetDisplayUnit(),
                            quantity.GetPrecision()};
    }
    if (value.Type() == OTX::ValueType::Float) return QuantityData{value.Float(), {}, value.Precision()};
    if (behaviour->IsInt()) return QuantityData{static_cast<double>(value.Int()), {}};
    return {};
}

const QuantityData* ownQuantity(const COtxValueBehaviour& behaviour) noexcept {
    if (behaviour.Type() != OTX::ValueType::Quantity || typeid(behaviour) != typeid(QuantityBehaviour)) return nullptr;
    return &static_cast<const QuantityBehaviour&>(behaviour).data();
}

}  // namespace otx

COtxQuantity::COtxQuantity(double value, const COtxValue& unit, int precision)
    : COtxValue(otx::makeQuantity({value, otx::checked(unit), precision})) {}
COtxQuantity::COtxQuantity(const COtxValue& value, const COtxValue& unit, int precision)
    : COtxValue(otx::makeQuantity(otx::withUnit(value, unit, precision))) {}

void COtxQuantity::RequireComparable(const COtxValue& left, const COtxValue& right) {
    if (!otx::isComparedAsQuantity(left, right)) return;
    const std::optional<otx::QuantityData> first = otx::quantityData(left);
    const std::optional<otx::QuantityData> second = otx::quantityData(right);
    if (!first || !second || otx::haveSameUnit(*first, *second)) return;
    if (otx::neededUnit(first->unit).dimension != otx::neededUnit(second->unit).dimension)
        otx::failConversion(second->unit, first->unit);
}
