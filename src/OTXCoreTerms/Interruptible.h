// Work within a term that may take long, and that a flow leaves when it is cancelled.
#pragma once

#include <OTXContext/OtxContext.h>
#include <OTXCoreActions/ControlExceptions.h>
#include <otx/Interruption.h>

namespace otxns {

inline void leaveIfCancelled(const OtxFlow& flow) {
    if (flow.state == FlowState::cancelled) throw velkotx::CancelException();
}

// Gives what the work gives, whose operations of values ask whether they should go on.
template <class Work>
auto interruptibly(OtxContext& context, Work work) {
    const OtxFlow& flow = context.OwnFlow();
    const auto ask = [&flow] { leaveIfCancelled(flow); };
    const otx::InterruptionScope scope(ask);
    return work();
}

}  // namespace otxns
