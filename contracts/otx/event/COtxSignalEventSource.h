// The event source of whatever a host or provider signals.
#pragma once

#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxValue.h>

// Fires an event of its kind at each Put, with that value, and at Signal. Hosts use it for the completion of diagnostic
// services, providers for the end of their services.
class OTX_API COtxSignalEventSource : public COtxValue {
public:
    explicit COtxSignalEventSource(OTX::EventKind kind);
};
