// The ProcedureCall action.
#include <OTXContext/OtxContext.h>
#include <OTXCoreActions/ArgumentMap.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <StackGuard.h>
#include <Trace.h>

namespace otxns {

namespace {

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
    ArgumentMap<COtxValue> in;
    ArgumentMap<std::shared_ptr<OtxVariable>> inout;
    ArgumentMap<std::shared_ptr<OtxVariable>> out;
    if (arguments().present()) {
        for (const InArgument& argument : arguments()->inArg())
            in.insert(argument.param().key(), evaluate(argument.term(), context));
        for (const InOutArgument& argument : arguments()->inoutArg())
            inout.insert(argument.param().key(), variables.GetVariable(argument.variable().name().key()));
    }
    variables.push(name);
    entry->realisation->exec(context, in, inout, out);
    variables.pop();
    if (!arguments().present()) return;
    for (const OutArgument& argument : arguments()->outArg())
        if (const auto* const cell = out.find(argument.param().key())) handOver(**cell, argument.variable(), context);
    for (auto& [parameter, cell] : out) variables.Recycle(std::move(cell));
}

}  // namespace otxns
