// Reading and writing the variable that an action names.
#include <OTXCoreTerms/VariableAccess.h>

namespace otxns {

template <>
void Variable_impl<Variable_base>::write(OtxContext& context, const COtxValue& value) const {
    assign(*this, context, value);
}

template <>
COtxValue Variable_impl<Variable_base>::read(OtxContext& context) const {
    return readVariable(context, name().key(), path());
}

}  // namespace otxns
