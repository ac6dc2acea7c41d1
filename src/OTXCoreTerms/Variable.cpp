// Reading and writing the variable that an action names.
#include <OTXCoreTerms/VariableRead.h>

namespace otxns {

template <>
void Variable_impl<Variable_base>::write(OtxContext& context, const COtxValue& value) const {
    if (path().present())
        path()->write(context, name().key(), value);
    else
        context.Variables().Set(name().key(), value);
}

template <>
COtxValue Variable_impl<Variable_base>::read(OtxContext& context) const {
    return readVariable(context, name().key(), path());
}

}  // namespace otxns
