// The cell of a context variable (ISO 13209-2): it keeps the value with which it was made.
#pragma once

#include <otx/value/OtxVariable.h>

class OtxContextVariable : public OtxVariable {
public:
    using OtxVariable::OtxVariable;

    // Refuses: InvalidReferenceException.
    void Set(const COtxValue& value) override;
};
