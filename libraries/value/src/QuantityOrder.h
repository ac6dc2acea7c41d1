// Equality and order of quantities.
#pragma once

#include <compare>

#include "QuantityValues.h"

namespace otx {

// By dimension, then by the value in base units to 15 significant digits, so that 0.1 m/s is 0.36 km/h; units that
// are unknown come last, by their name, then by the exact number. A weak order.
std::weak_ordering compareQuantities(const QuantityData& left, const QuantityData& right);

// The plain number that the quantity is equal to, if its unit has no dimension. With the empty unit that is its own
// number.
std::optional<double> plainNumber(const QuantityData& quantity);

// Whether it needs no table of units to know that they are of one kind.
bool haveSameUnit(const QuantityData& left, const QuantityData& right);

}  // namespace otx
