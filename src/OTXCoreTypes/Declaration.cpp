// A declaration: a new cell with the initial value, entered in its scope.
#include <Exactly.h>
#include <OTXContext/OtxContext.h>
#include <OtxVars/Cell.h>
#include <StackGuard.h>
#include <Trace.h>

namespace otxns {

// A name that the scope already has keeps its cell. A constant is declared as a variable is.
template <>
void Declaration_impl<Declaration_base>::declare(OtxContext& context, bool global) const {
    if (!realisation().present() || !name().present()) return;
    OtxVars& variables = context.Variables();
    const DataType& type = realisation()->dataType();
    // Nearly every local, and without a value made on the way.
    if (const auto* const integer = exactly<Integer>(type);
        integer != nullptr && !integer->init().present() && !global && !Trace::isOn(4))
        return variables.DeclareInteger(name()->key(), 0);
    requireStack();
    COtxValue value = type.eval(context);
    OTX_TRACE(4, "Id: " << id() << " Name: " << name().get() << " Type: " << value.stringType());
    if (global)
        variables.Scope(true).Add(name()->key(), makeCell<OtxVariable>(std::move(value)));
    else
        variables.Declare(name()->key(), std::move(value));
}

}  // namespace otxns
