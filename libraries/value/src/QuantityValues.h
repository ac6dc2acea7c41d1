// What the library knows of Quantity values.
#pragma once

#include <otx/value/COtxFloat.h>
#include <otx/value/COtxValue.h>

#include <optional>

namespace otx {

// What a quantity is made of. A plain number is one too, without a unit value: it counts as having the empty unit.
struct QuantityData {
    double number = 0;
    // A Unit, or the empty value for a plain number.
    COtxValue unit;
    int precision = COtxFloat::standardPrecision;

    bool isPlain() const noexcept { return unit.Type() == OTX::ValueType::Empty; }
};

// Gets the empty unit where the data has none.
COtxValue makeQuantity(const QuantityData& data);
// With the empty unit.
COtxValue makeQuantity(double value, int precision = COtxFloat::standardPrecision);

// Of a Quantity, anybody's, or a number; nothing for other types.
std::optional<QuantityData> quantityData(const COtxValue& value);

// The data of the library's own Quantity; a null pointer for all else.
const QuantityData* ownQuantity(const COtxValueBehaviour& behaviour) noexcept;

}  // namespace otx
