// The Flow: runs its nodes in order, each behind its checkpoint.
#include <OTXCoreActions/Statements.h>
#include <StackGuard.h>

namespace otxns {

namespace {

bool isEnabled(const Node& node) {
    return !node.disabled().present() || !node.disabled().get();
}

FlowExit runNode(const Node& node, OtxContext& context) {
    if (const auto* const branch = exactly<Branch>(node)) return run(*branch, context);
    if (const auto* const loop = exactly<Loop>(node)) return run(*loop, context);
    if (const auto* const group = exactly<Group>(node)) return run(*group, context);
    if (const auto* const group = exactly<MutexGroup>(node)) return run(*group, context);
    if (const auto* const handler = exactly<Handler>(node)) return run(*handler, context);
    node.exec(context);
    return {};
}

FlowExit runEnd(const Node& node, OtxContext& context) {
    if (const auto* const end = exactly<Return>(node)) return FlowExit::of(*end);
    if (const auto* const end = exactly<Break>(node)) return FlowExit::of(*end);
    if (const auto* const end = exactly<Continue>(node)) return FlowExit::of(*end);
    node.exec(context);
    return {};
}

}  // namespace

FlowExit run(const Flow& flow, OtxContext& context) {
    requireStack();
    const auto thread = std::this_thread::get_id();
    bool nothingRan = true;
    for (const Node& node : flow.blockBegin()) {
        if (!isEnabled(node)) continue;
        nothingRan = false;
        context.NodeCheckpoint(&node, thread);
        if (exactly<Action>(node) != nullptr) [[likely]]
            node.exec(context);
        else if (const FlowExit exit = runNode(node, context))
            return exit;
    }
    if (flow.blockEnd().present() && isEnabled(flow.blockEnd().get())) {
        context.NodeCheckpoint(&flow.blockEnd().get(), thread);
        return runEnd(flow.blockEnd().get(), context);
    }
    // Without it a loop with nothing to run could be neither stopped nor cancelled.
    if (nothingRan) context.FlowCheckpoint(thread);
    return {};
}

template <>
void Flow_impl<Flow_base>::exec(OtxContext& context) const {
    run(*this, context).raise();
}

}  // namespace otxns
