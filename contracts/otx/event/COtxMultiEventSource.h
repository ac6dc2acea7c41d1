// The event source that waits on several others.
#pragma once

#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxValue.h>

// Its Wait answers the first event of any member, and false when it is closed or any member is. Its destruction leaves the
// members open.
class OTX_API COtxMultiEventSource : public COtxValue {
public:
    COtxMultiEventSource();
};
