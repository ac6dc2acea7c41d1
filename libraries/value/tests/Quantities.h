// Short ways to make and read quantities, for the tests.
#pragma once

#include <string>

#include "Thrown.h"

namespace tests {

constexpr int quantityException = 16;
constexpr int unknownUnit = 17;
constexpr int invalidConversion = 18;

inline COtxQuantity quantity(double number, const std::string& unit, int precision = 16) {
    return COtxQuantity(number, COtxUnit(unit), precision);
}

inline std::string unitOf(const COtxValue& unit) { return unit.Unit().Name(); }

inline double number(const COtxValue& quantity) { return quantity.Quantity().GetDisplayValue().Float(); }
inline std::string unit(const COtxValue& quantity) { return unitOf(quantity.Quantity().GetDisplayUnit()); }

// The number in the other unit.
inline double converted(double value, const std::string& from, const std::string& to) {
    return number(COtxQuantity(quantity(value, from), COtxUnit(to), 16));
}

// With six digits.
inline std::string localized(const COtxValue& quantity, const std::string& group) {
    const COtxValue local = quantity.Quantity().Localize(group);
    return COtxQuantity(local, local.Quantity().GetDisplayUnit(), 6).ToString().String();
}

inline std::string shown(const COtxValue& value) { return value.ToString().String(); }

}  // namespace tests
