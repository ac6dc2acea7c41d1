// Arithmetic of quantities with each other and with numbers.
#pragma once

#include "Numbers.h"
#include "QuantityValues.h"

namespace otx {

// At least one side is a quantity. The precision is the left quantity's, or the only one's.
//
// Add, subtract, modulo: the right side is converted to the left one's unit, a number counts as a quantity with the
// empty unit. Multiply and divide by a number or by a quantity with the empty unit scale the other one; otherwise
// they build the unit. Throws what the conversion throws; 3 as for Floats; 16 for units that get too large; 5 where
// the right side is neither a quantity nor a number.
COtxValue calculate(Operation operation, const QuantityData& left, OTX::ValueType leftType, const COtxValue& right);

}  // namespace otx
