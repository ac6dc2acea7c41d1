// The event source of a timer.
#pragma once

#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxValue.h>

// Fires one event of kind 1 when the timeout is over, counted from the construction; nothing comes after it.
class OTX_API COtxTimerExpiredEventSource : public COtxValue {
public:
    // A number of milliseconds; a negative one has expired at once. Not-a-number throws kind 2, a value that is no number
    // kind 5.
    explicit COtxTimerExpiredEventSource(const COtxValue& timeout);
};
