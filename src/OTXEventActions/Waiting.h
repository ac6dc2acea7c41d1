// The one place where a sequence blocks until something happens.
#pragma once

#include <OTXContext/OtxContext.h>
#include <otx/event/IEventSource.h>

#include <mutex>

namespace otxns {

// What the calling flow waits for, where a cancel finds it.
class WaitingFlow {
public:
    WaitingFlow(OtxFlow& flow, const COtxValue& source) : flow_(flow) { set(source); }
    ~WaitingFlow() { set(COtxValue()); }
    WaitingFlow(const WaitingFlow&) = delete;
    WaitingFlow& operator=(const WaitingFlow&) = delete;

private:
    void set(const COtxValue& source) {
        const std::lock_guard own(flow_.lock);
        flow_.waitedFor = source;
    }

    OtxFlow& flow_;
};

// Waits on the calling thread, with no lock held, and stores the event. False when the source is closed, and at once when the
// run is cancelled: what a flow makes after the cancelling has closed the run's sources would wait for ever. What is waited
// for is noted before the look at the flow, and the flow is marked before the notes are read, so that one of the two is
// always seen. A value that is no source refuses.
inline bool waitFor(const COtxValue& source, COtxValue& event, OtxContext& context) {
    OTX::IEventSource& waitedOn = source.EventSource();
    OtxFlow& flow = context.OwnFlow();
    const WaitingFlow waiting(flow, source);
    return !flow.isRunCancelled() && waitedOn.Wait(event);
}

}  // namespace otxns
