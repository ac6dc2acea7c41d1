// The event source of a screen that closes.
#pragma once

#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxValue.h>

// Fires an event of kind 4 at each Put, with its value. Signal tells that the screen has gone: from then on every wait ends
// at once with such an event.
class OTX_API COtxHMIScreenClosedEventSource : public COtxValue {
public:
    COtxHMIScreenClosedEventSource();
};
