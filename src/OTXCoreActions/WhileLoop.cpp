// The WhileLoop: tests ahead of each iteration, or behind it with isPostTested. A Continue goes to the test.
#include <OTXCoreActions/LoopBody.h>
#include <OTXCoreTerms/IntegerTerms.h>

namespace otxns {

FlowExit run(const WhileLoop& loop, OtxContext& context, const Flow& body, const OtxName& loopName) {
    const bool testsBehind = loop.isPostTested().present() && loop.isPostTested().get();
    if (!testsBehind && !evaluateTruth(loop.test(), context)) return {};
    do {
        const Iteration iteration = iterate(body, context, loopName);
        if (!iteration.goesOn) return iteration.exit;
    } while (evaluateTruth(loop.test(), context));
    return {};
}

template <>
void WhileLoop_impl<WhileLoop_base>::exec(OtxContext& context, const Flow& body, const OtxName& loopName) const {
    run(*this, context, body, loopName).raise();
}

}  // namespace otxns
