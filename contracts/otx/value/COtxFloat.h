// The Float value.
#pragma once

#include <otx/value/COtxValue.h>

// A double (IEEE 754, 64 bits). The precision is the number of significant digits that a host may show; no operation
// depends on it. Results of arithmetic carry 16.
class OTX_API COtxFloat : public COtxValue {
public:
    static constexpr int standardPrecision = 16;

    explicit COtxFloat(double value, int precision = standardPrecision);
};
