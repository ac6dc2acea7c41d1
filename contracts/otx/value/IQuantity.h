// The operations of a Quantity value.
#pragma once

#include <otx/Export.h>

#include <string>

class COtxValue;

namespace OTX {

// Behind COtxValue::Quantity(). Immutable.
class OTX_API IQuantity {
public:
    // Float, in the display unit.
    virtual COtxValue GetDisplayValue() const = 0;
    // Unit.
    virtual COtxValue GetDisplayUnit() const = 0;
    // Significant digits that the text shows at most.
    virtual int GetPrecision() const = 0;
    // Unit, of the SI without prefixes: "m/s" for "km/h". Throws kind 17 for a unit that isn't known.
    virtual COtxValue GetBaseUnit() const = 0;
    // Quantity in a unit of the group "metric".
    virtual COtxValue Localize() const = 0;
    // Quantity in the unit that the group, "metric" or "imperial", uses for this one; unchanged where it has none.
    // Throws kind 16 for another group.
    virtual COtxValue Localize(const std::string& unitGroup) const = 0;

protected:
    ~IQuantity() = default;
};

}  // namespace OTX
