// The MutexGroup node: one section at a time in the whole document.
#include <ClassNames.h>
#include <OTXCoreActions/ControlExceptions.h>
#include <OTXCoreActions/Statements.h>
#include <Trace.h>

namespace otxns {

namespace {

// Between entering and leaving. A flow that waits to enter while the run is cancelled ends there.
class Section {
public:
    explicit Section(OtxContext& context) : lock_(context.MutexGroupLock()) {
        const OtxFlow& flow = context.OwnFlow();
        if (!lock_.lock([&] { return flow.isRunCancelled(); })) throw velkotx::CancelException();
    }
    ~Section() { lock_.unlock(); }
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;

private:
    SectionLock& lock_;
};

}  // namespace

FlowExit run(const MutexGroup& group, OtxContext& context) {
    OTX_TRACE_AS("otxns::MutexGroup_impl<otxns::MutexGroup_base>::exec", 4, runtimeClass(group));
    if (!group.realisation().present()) return {};
    const Section section(context);
    return run(group.realisation().get(), context);
}

template <>
void MutexGroup_impl<MutexGroup_base>::exec(OtxContext& context) const {
    run(*this, context).raise();
}

}  // namespace otxns
