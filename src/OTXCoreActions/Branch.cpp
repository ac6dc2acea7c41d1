// The Branch node: runs the flow of the first condition that holds, else that of `else`.
#include <OTXCoreTerms/Evaluate.h>

namespace otxns {

namespace {

// A conditional flow without a condition never runs.
bool holds(const ConditionalFlow& candidate, OtxContext& context) {
    const auto& condition = candidate.condition().realisation();
    return condition.present() && evaluate(condition.get(), context).Bool();
}

}  // namespace

template <>
void Branch_impl<Branch_base>::exec(OtxContext& context) const {
    if (!realisation().present()) return;
    const BranchRealisation& branch = realisation().get();
    if (holds(branch.if_(), context)) return branch.if_().flow().exec(context);
    for (const ConditionalFlow& candidate : branch.elseif())
        if (holds(candidate, context)) return candidate.flow().exec(context);
    if (branch.else_().present()) branch.else_()->exec(context);
}

}  // namespace otxns
