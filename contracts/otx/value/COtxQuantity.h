// The Quantity value.
#pragma once

#include <otx/value/COtxUnit.h>
#include <otx/value/COtxValue.h>
#include <otx/value/IQuantity.h>

// A number with a unit and a display precision: the significant digits that its text shows at most. Immutable.
//
// Add, subtract, modulo and comparison convert the right side to the left one's unit; a plain number counts as a
// quantity with the empty unit. Multiply and divide scale by plain numbers and otherwise build the unit: V times A is
// "V.A". Throws kind 17 (UnknownUnitException) when a unit that isn't known has to be converted, 18
// (InvalidConversionException) for units of different dimensions, 16 (QuantityException) for units that get too large
// and for unknown unit groups.
class OTX_API COtxQuantity : public COtxValue {
public:
    COtxQuantity(double value, const COtxValue& unit, int precision);
    // The value is a number, which takes the unit, or a quantity, which is converted to the unit. Where either unit
    // is empty the number stays as it is.
    COtxQuantity(const COtxValue& value, const COtxValue& unit, int precision);

    // For comparisons that are to tell more or less: throws kind 18, or 17, for two quantities, or a quantity and a
    // number, of different dimensions. Such are unequal and have an order nevertheless, for containers: dimension by
    // dimension.
    static void RequireComparable(const COtxValue& left, const COtxValue& right);
};
