// A declaration: a new cell with the initial value, entered in its scope.
#include <OTXContext/OtxContext.h>
#include <OtxVars/Cell.h>
#include <StackGuard.h>
#include <Trace.h>

namespace otxns {

// A name that the scope already has keeps its cell. A constant is declared as a variable is.
template <>
void Declaration_impl<Declaration_base>::declare(OtxContext& context, bool global) const {
    if (!realisation().present() || !name().present()) return;
    requireStack();
    COtxValue value = realisation()->dataType().eval(context);
    OTX_TRACE(4, "Id: " << id() << " Name: " << name().get() << " Type: " << value.stringType());
    auto cell = makeCell<OtxVariable>(std::move(value));
    context.Variables().Scope(global).Add(name()->key(), std::move(cell));
}

}  // namespace otxns
