// The Branch node: runs the flow of the first condition that holds, else that of `else`.
#include <OTXCoreActions/Statements.h>
#include <OTXCoreTerms/IntegerTerms.h>

namespace otxns {

namespace {

// A conditional flow without a condition never runs.
bool holds(const ConditionalFlow& candidate, OtxContext& context) {
    const auto& condition = candidate.condition().realisation();
    return condition.present() && evaluateTruth(condition.get(), context);
}

}  // namespace

FlowExit run(const Branch& branch, OtxContext& context) {
    if (!branch.realisation().present()) return {};
    const BranchRealisation& choice = branch.realisation().get();
    if (holds(choice.if_(), context)) return run(choice.if_().flow(), context);
    for (const ConditionalFlow& candidate : choice.elseif())
        if (holds(candidate, context)) return run(candidate.flow(), context);
    if (choice.else_().present()) return run(choice.else_().get(), context);
    return {};
}

template <>
void Branch_impl<Branch_base>::exec(OtxContext& context) const {
    run(*this, context).raise();
}

}  // namespace otxns
