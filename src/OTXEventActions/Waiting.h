// The one place where a sequence blocks until something happens.
#pragma once

#include <OTXContext/OtxContext.h>
#include <otx/event/IEventSource.h>

namespace otxns {

// Waits on the calling thread, with no lock held, and stores the event. False when the source is closed, and at once when the
// run is cancelled: what a flow makes after the cancelling has closed the run's sources would wait for ever. The source is
// entered in its group before the look at the flow, and the flow is marked before the group is closed, so that one of the two
// is always seen.
inline bool waitFor(OTX::IEventSource& source, COtxValue& event, OtxContext& context) {
    return !context.OwnFlow().isRunCancelled() && source.Wait(event);
}

}  // namespace otxns
