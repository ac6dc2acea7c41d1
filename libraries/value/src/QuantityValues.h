// Makers of the library's own Quantity.
#pragma once

#include <otx/value/COtxFloat.h>
#include <otx/value/COtxValue.h>

namespace otx {

// With the empty unit.
COtxValue makeQuantity(double value, int precision = COtxFloat::standardPrecision);

}  // namespace otx
