// The MutexGroup node: one section at a time in the whole document.
#include <ClassNames.h>
#include <OTXCoreActions/Statements.h>
#include <Trace.h>

namespace otxns {

FlowExit run(const MutexGroup& group, OtxContext& context) {
    OTX_TRACE_AS("otxns::MutexGroup_impl<otxns::MutexGroup_base>::exec", 4, runtimeClass(group));
    if (!group.realisation().present()) return {};
    const std::lock_guard guard(context.MutexGroupLock());
    return run(group.realisation().get(), context);
}

template <>
void MutexGroup_impl<MutexGroup_base>::exec(OtxContext& context) const {
    run(*this, context).raise();
}

}  // namespace otxns
