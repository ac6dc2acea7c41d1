// The event source of a screen that closes.
#pragma once

#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxValue.h>

// Fires an event of kind 4 at each Put, with its value, and at Signal.
class OTX_API COtxHMIScreenClosedEventSource : public COtxValue {
public:
    COtxHMIScreenClosedEventSource();
};
