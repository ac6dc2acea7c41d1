// The state of a diagnostic response.
#pragma once

#include <otx/value/COtxValue.h>

// An Integer-backed enumeration: Int() answers the number, ToString() the literal. A number without a literal throws
// kind 2.
class OTX_API COtxResponseState : public COtxValue {
public:
    enum ResponseState : int {
        Failed = 0,    // "FAILED"
        Invalid = 1,   // "INVALID"
        Negative = 2,  // "NEGATIVE"
        Positive = 3   // "POSITIVE"
    };

    explicit COtxResponseState(ResponseState value);
};
