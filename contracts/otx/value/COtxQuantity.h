// The Quantity value.
#pragma once

#include <otx/value/COtxUnit.h>
#include <otx/value/COtxValue.h>
#include <otx/value/IQuantity.h>

// A number with a unit and a display precision. Quantities are made, read, compared (same unit, by value), copied and
// written as JSON; arithmetic with them throws kind 5 until the library has a table of units.
class OTX_API COtxQuantity : public COtxValue {
public:
    COtxQuantity(double value, const COtxValue& unit, int precision);
    // The value is a number, or a quantity whose number is taken over and whose unit is replaced.
    COtxQuantity(const COtxValue& value, const COtxValue& unit, int precision);
};
