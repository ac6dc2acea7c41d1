// The refusal of a write to a context variable.
#include <OtxVars/OtxContextVariable.h>
#include <otx/value/COtxException.h>

void OtxContextVariable::Set(const COtxValue&) {
    throw COtxException(OTX::Exceptions_e::InvalidReferenceException, "Cannot set a context variable");
}
