// The event source of changes to variables.
#pragma once

#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxValue.h>

// Fires an event of kind 2, with name and new value, at each write of a variable to which it is attached
// (OtxVariable::AddEventSource).
class OTX_API COtxMonitorChangeEventSource : public COtxValue {
public:
    COtxMonitorChangeEventSource();
};
