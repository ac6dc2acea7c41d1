// The event source of a variable that leaves a range.
#pragma once

#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxValue.h>

// Fires an event of kind 7, with name and new value, at a write that takes the variable out of the range from lower to
// upper threshold, both inclusive, after a value inside it.
class OTX_API COtxThresholdExceededEventSource : public COtxValue {
public:
    // The current value tells whether the variable is inside the range now.
    COtxThresholdExceededEventSource(const COtxValue& lower, const COtxValue& upper, const COtxValue& current);
};
