// The operations of a Quantity value.
#pragma once

#include <otx/Export.h>

#include <string>

class COtxValue;

namespace OTX {

// Behind COtxValue::Quantity(). Immutable. The library has no table of units yet: what needs one (GetBaseUnit and
// Localize) throws kind 5.
class OTX_API IQuantity {
public:
    // Float, in the display unit.
    virtual COtxValue GetDisplayValue() const = 0;
    // Unit.
    virtual COtxValue GetDisplayUnit() const = 0;
    // Significant digits to show.
    virtual int GetPrecision() const = 0;
    virtual COtxValue GetBaseUnit() const = 0;
    virtual COtxValue Localize() const = 0;
    virtual COtxValue Localize(const std::string& unitGroup) const = 0;

protected:
    ~IQuantity() = default;
};

}  // namespace OTX
