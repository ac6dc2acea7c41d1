// The Flow: runs its nodes in order, each behind its checkpoint.
#include <OTXContext/OtxContext.h>
#include <StackGuard.h>

namespace otxns {

namespace {

bool isEnabled(const Node& node) {
    return !node.disabled().present() || !node.disabled().get();
}

}  // namespace

template <>
void Flow_impl<Flow_base>::exec(OtxContext& context) const {
    requireStack();
    const auto thread = std::this_thread::get_id();
    bool nothingRan = true;
    for (const Node& node : blockBegin()) {
        if (!isEnabled(node)) continue;
        nothingRan = false;
        context.NodeCheckpoint(&node, thread);
        node.exec(context);
    }
    if (blockEnd().present() && isEnabled(blockEnd().get())) {
        context.NodeCheckpoint(&blockEnd().get(), thread);
        blockEnd()->exec(context);
        return;
    }
    // Without it a loop with nothing to run could be neither stopped nor cancelled.
    if (nothingRan) context.FlowCheckpoint(thread);
}

}  // namespace otxns
