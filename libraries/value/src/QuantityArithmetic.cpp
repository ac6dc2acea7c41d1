// Arithmetic of quantities with each other and with numbers.
#include "QuantityArithmetic.h"

#include <otx/value/COtxUnit.h>

#include <cmath>

#include "QuantityConversion.h"
#include "Refusal.h"
#include "UnitValues.h"
#include "unit/UnitProduct.h"

namespace otx {

namespace {

QuantityData sum(Operation operation, const QuantityData& left, const QuantityData& right) {
    return {calculate(operation, left.number, summandInUnit(right, left.unit)), left.unit, left.precision};
}

QuantityData product(Operation operation, const QuantityData& left, const QuantityData& right) {
    const double number = calculate(operation, left.number, right.number);
    const std::string& rightName = unitName(right.unit);
    if (rightName.empty()) return {number, left.unit, left.precision};
    if (operation == Operation::Multiply && unitName(left.unit).empty()) return {number, right.unit, left.precision};
    if (operation == Operation::Divide && unitName(left.unit) == rightName) return {number, {}, left.precision};
    UnitProduct unit;
    unit.append(neededTerms(left.unit));
    unit.append(neededTerms(right.unit), operation == Operation::Multiply ? 1 : -1);
    const auto scaled = static_cast<double>(number * unit.scale().numerator / unit.scale().denominator);
    if (!std::isfinite(scaled))
        failArithmetic(operation, floatText(left.number) + " " + unitName(left.unit),
                       floatText(right.number) + " " + rightName, "the result is not a finite number");
    return {scaled, COtxUnit(unit.terms().name()), left.precision};
}

}  // namespace

COtxValue calculate(Operation operation, const QuantityData& left, OTX::ValueType leftType, const COtxValue& right) {
    const std::optional<QuantityData> other = quantityData(right);
    if (!other) refuse(nameOf(operation), leftType, right.Type());
    const bool multiplies = operation == Operation::Multiply || operation == Operation::Divide;
    QuantityData result = multiplies ? product(operation, left, *other) : sum(operation, left, *other);
    if (left.isPlain()) result.precision = other->precision;
    return makeQuantity(result);
}

}  // namespace otx
