// Quantities from one unit to another.
#include "QuantityConversion.h"

#include <otx/value/COtxUnit.h>

#include <cmath>

#include "Numbers.h"
#include "Refusal.h"
#include "UnitValues.h"
#include "unit/UnitGroups.h"
#include "unit/UnitParser.h"

namespace otx {

namespace {

template <class Convert>
double inUnit(const QuantityData& quantity, const COtxValue& unit, Convert convert) {
    if (unitName(quantity.unit) == unitName(unit)) return quantity.number;
    const ResolvedUnit from = neededUnit(quantity.unit);
    const ResolvedUnit to = neededUnit(unit);
    if (from.dimension != to.dimension) failConversion(quantity.unit, unit);
    const auto number = static_cast<double>(convert(from.scale, to.scale));
    if (std::isfinite(quantity.number) && !std::isfinite(number))
        fail(OTX::Exceptions_e::ArithmeticException, "Conversion of " + floatText(quantity.number) + " from unit \"" +
                                                         unitName(quantity.unit) + "\" to unit \"" + unitName(unit) +
                                                         "\": the result is not a finite number");
    return number;
}

}  // namespace

double numberInUnit(const QuantityData& quantity, const COtxValue& unit) {
    return inUnit(quantity, unit, [&](const UnitScale& from, const UnitScale& to) {
        return from.convert(quantity.number, to);
    });
}

double summandInUnit(const QuantityData& quantity, const COtxValue& unit) {
    return inUnit(quantity, unit, [&](const UnitScale& from, const UnitScale& to) {
        const bool difference = to.shift != 0 && from.shift == 0;
        return difference ? from.convertDifference(quantity.number, to) : from.convert(quantity.number, to);
    });
}

QuantityData localized(const QuantityData& quantity, const std::string& group) {
    const std::optional<UnitGroup> known = unitGroup(group);
    if (!known)
        fail(OTX::Exceptions_e::QuantityException,
             "Unit group \"" + group + "\" is unknown, there are \"metric\" and \"imperial\"");
    const std::optional<UnitTerms> terms = parseUnit(unitName(quantity.unit));
    if (!terms) return quantity;
    const std::optional<std::string> name = equivalentUnit(*terms, *known);
    if (!name) return quantity;
    const COtxUnit unit(*name);
    return {numberInUnit(quantity, unit), unit, quantity.precision};
}

}  // namespace otx
