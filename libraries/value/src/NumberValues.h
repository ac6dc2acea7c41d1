// Makers of the library's own Boolean, Integer and Float.
#pragma once

#include <otx/value/COtxFloat.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxValue.h>

namespace otx {

COtxValue makeBoolean(bool value);
COtxValue makeInteger(long long value, COtxInt::Radix radix = COtxInt::Decimal);
COtxValue makeFloat(double value, int precision = COtxFloat::standardPrecision);

}  // namespace otx
