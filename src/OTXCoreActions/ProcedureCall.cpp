// The ProcedureCall action.
#include <OTXContext/OtxContext.h>
#include <OTXCoreActions/CallArguments.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXCoreTerms/IntegerTerms.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <StackGuard.h>
#include <Trace.h>

namespace otxns {

namespace {

InValue inValue(const Term& term, OtxContext& context) {
    if (long long number = 0; calculateFreshInteger(term, context, number)) return InValue(number);
    return InValue(evaluate(term, context));
}

// An Integer that nobody else has a handle of goes over as a number.
void handOver(const OtxVariable& cell, const Variable& target, OtxContext& context) {
    if (long long number = 0; cell.ReadSoleInteger(number))
        assignInteger(target, context, number);
    else
        assign(target, context, cell.Value());
}

}  // namespace

// A name that no procedure has makes the call do nothing; this is meant. The frame of a call that an exception leaves
// stays until a Handler unwinds it.
template <>
void ProcedureCall_impl<ProcedureCall_base>::exec(OtxContext& context) const {
    requireStack();
    const Name& name = procedure().key();
    OTX_TRACE(4, name.text());
    const ProcedureTable::Entry* const entry = context.Procedures().find(name);
    if (entry == nullptr) {
        OTX_TRACE(0, "procedure " << name.text() << " not found");
        return;
    }
    OtxVars& variables = context.Variables();
    CallArguments maps;
    if (arguments().present()) {
        for (const InArgument& argument : arguments()->inArg())
            maps.in.insert(argument.param().key(), inValue(argument.term(), context));
        for (const InOutArgument& argument : arguments()->inoutArg())
            maps.inout.insert(argument.param().key(), variables.GetVariable(argument.variable().name().key()));
    }
    variables.push(name);
    entry->realisation->exec(context, maps);
    variables.pop();
    if (!arguments().present()) return;
    for (const OutArgument& argument : arguments()->outArg())
        if (const auto* const cell = maps.out.find(argument.param().key())) handOver(**cell, argument.variable(), context);
    for (auto& [parameter, cell] : maps.out) variables.Recycle(std::move(cell));
}

}  // namespace otxns
