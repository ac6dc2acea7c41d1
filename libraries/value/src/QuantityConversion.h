// Quantities from one unit to another.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>

#include "QuantityValues.h"

namespace otx {

// The quantity's number in the unit. Throws kind 17 for a unit that is unknown, unless both have the same name; 18
// for units of different dimensions; 3 for a result that is no finite number.
double numberInUnit(const QuantityData& quantity, const COtxValue& unit);

// The same for the right side of a sum. Next to a temperature whose zero isn't 0 K, one whose zero is counts as a
// difference: 20 degC and 5 K are 25 degC.
double summandInUnit(const QuantityData& quantity, const COtxValue& unit);

// In the unit that the group uses instead; itself where there is none. Throws kind 16 for an unknown group.
QuantityData localized(const QuantityData& quantity, const std::string& group);

}  // namespace otx
