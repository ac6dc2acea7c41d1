// The declaration of a context variable: it takes the host's value, if the host gave one.
#include <OTXContext/OtxContext.h>
#include <OTXCoreTerms/Content.h>
#include <OtxVars/Cell.h>
#include <OtxVars/OtxContextVariable.h>
#include <Trace.h>

namespace otxns {

template <>
void ContextVariableDeclaration_impl<ContextVariableDeclaration_base>::declare(OtxContext& context, bool global) const {
    if (!realisation().present() || !name().present()) return;
    const Name& key = name()->key();
    COtxValue value;
    if (!context.Variables().ContextVars().Get(key, value)) value = realisation()->dataType().eval(context);
    auto cell = makeCell<OtxContextVariable>(value);
    OTX_TRACE(4, "Name: " << key.text() << " Value: " << Shown(value, context));
    context.Variables().Scope(global).Add(key, std::move(cell));
}

}  // namespace otxns
