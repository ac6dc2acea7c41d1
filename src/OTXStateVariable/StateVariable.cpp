// The declaration of a state variable.
#include <OTXContext/OtxContext.h>
#include <OTXStateVariable/OtxStateVariable.h>
#include <OtxVars/Cell.h>
#include <schema/StateVariable.h>

#include <utility>

namespace StateVariable {

// A value that the host gave for a context variable of that name doesn't count; this is meant.
template <>
void StateVariableDeclaration_impl<StateVariableDeclaration_base>::declare(otxns::OtxContext& context, bool global) const {
    if (!realisation().present() || !name().present()) return;
    const COtxValue value = realisation()->dataType().eval(context);
    const std::string& declaredName = name().get();
    auto cell = otxns::makeCell<OtxStateVariable>(value, &declaredName, &context);
    context.Variables().Scope(global).Add(name()->key(), std::move(cell));
}

}  // namespace StateVariable
