// The WhileLoop: tests ahead of each iteration, or behind it with isPostTested. A Continue goes to the test.
#include <OTXCoreActions/LoopBody.h>
#include <OTXCoreTerms/Evaluate.h>

namespace otxns {

template <>
void WhileLoop_impl<WhileLoop_base>::exec(OtxContext& context, const Flow& body, const OtxName& loopName) const {
    const bool testsBehind = isPostTested().present() && isPostTested().get();
    if (!testsBehind && !evaluate(test(), context).Bool()) return;
    do {
        if (iterate(body, context, loopName) == Iteration::left) return;
    } while (evaluate(test(), context).Bool());
}

}  // namespace otxns
