// The state of a diagnostic result.
#pragma once

#include <otx/value/COtxValue.h>

// An Integer-backed enumeration: Int() answers the number, ToString() the literal. A number without a literal throws
// kind 2.
class OTX_API COtxResultState : public COtxValue {
public:
    enum ResultState : int {
        AllFailed = 0,    // "ALL_FAILED"
        AllInvalid = 1,   // "ALL_INVALID"
        AllNegative = 2,  // "ALL_NEGATIVE"
        AllPositive = 3,  // "ALL_POSITIVE"
        Failed = 4,       // "FAILED"
        Invalid = 5,      // "INVALID"
        Negative = 6,     // "NEGATIVE"
        Positive = 7      // "POSITIVE"
    };

    explicit COtxResultState(ResultState value);
};
