// The event source of changes to variables.
#pragma once

#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxValue.h>

#include <cstddef>

// Fires an event of kind 2, with name and new value, at each write of a variable to which it is attached
// (OtxVariable::AddEventSource). While nobody takes them the oldest of more than 65536 events are dropped, or of more than
// the source was made for.
class OTX_API COtxMonitorChangeEventSource : public COtxValue {
public:
    COtxMonitorChangeEventSource();
    explicit COtxMonitorChangeEventSource(std::size_t longestQueue);
};
