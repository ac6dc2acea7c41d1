// The body of a procedure: parameters, declarations, flow.
#include <OTXCoreActions/CallArguments.h>
#include <OTXCoreActions/ControlExceptions.h>
#include <OTXCoreActions/Statements.h>
#include <Trace.h>

namespace otxns {

namespace {

template <class Declarations>
void declareEach(const Declarations& declarations, OtxContext& context) {
    for (const auto& declaration : declarations) declaration.declare(context, false);
}

void declareLocals(const ProcedureRealisation& procedure, OtxContext& context) {
    if (procedure.parameters().present()) {
        const ParameterDeclarations& parameters = procedure.parameters().get();
        declareEach(parameters.inParam(), context);
        declareEach(parameters.inoutParam(), context);
        declareEach(parameters.outParam(), context);
    }
    if (procedure.declarations().present()) {
        const LocalDeclarations& locals = procedure.declarations().get();
        declareEach(locals.constant(), context);
        declareEach(locals.variable(), context);
    }
}

}  // namespace

// An argument that matches no parameter falls through to the global of its name. An in-out parameter isn't copied: it
// is the caller's cell under a second name. Out parameters are handed over as cells, also after a Return; not when an
// exception passes.
template <>
void ProcedureRealisation_impl<ProcedureRealisation_base>::exec(OtxContext& context, CallArguments& arguments) const {
    OTX_TRACE(4, "Procedure");
    OtxVars& variables = context.Variables();
    declareLocals(*this, context);
    for (auto& [name, value] : arguments.in) value.moveTo(variables, *name);
    for (const auto& [name, cell] : arguments.inout) variables.Bind(*name, cell);
    try {
        // The only place where a Return ends.
        if (const FlowExit exit = run(flow(), context); !exit.isReturn()) exit.raise();
    } catch (velkotx::ReturnException&) {
    }
    if (!parameters().present()) return;
    for (const auto& parameter : parameters()->outParam()) {
        if (!parameter.name().present()) continue;
        const Name& name = parameter.name()->key();
        arguments.out.assign(name, variables.GetVariable(name));
    }
}

}  // namespace otxns
