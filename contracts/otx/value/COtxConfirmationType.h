// The answer of an operator.
#pragma once

#include <otx/value/COtxValue.h>

// An Integer-backed enumeration: Int() answers the number, ToString() the literal. A number without a literal throws
// kind 2.
class OTX_API COtxConfirmationType : public COtxValue {
public:
    enum ConfirmationType : int {
        Yes = 0,    // "YES"
        No = 1,     // "NO"
        Cancel = 2  // "CANCEL"
    };

    explicit COtxConfirmationType(ConfirmationType value);
};
