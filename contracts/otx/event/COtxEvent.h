// An event as a value.
#pragma once

#include <otx/event/IEvent.h>
#include <otx/value/COtxValue.h>

// Immutable. Its text is the kind's name, with the event's name and value where it has them: "MonitorChange(speed, 12)".
// Of a List, a Map or another event the text only tells the type.
class OTX_API COtxEvent : public COtxValue {
public:
    // An event without a name.
    COtxEvent(OTX::EventKind kind, const COtxValue& value);
    // The name is a String or the empty value; anything else throws kind 5.
    COtxEvent(OTX::EventKind kind, const COtxValue& name, const COtxValue& value);
};
