// What one can wait on.
#pragma once

#include <otx/Export.h>

class COtxValue;

namespace OTX {

// Behind COtxValue::EventSource(). A source is open from its creation until Close; closing is final. Events that arrive
// while nobody waits are kept in order, each for one Wait. All operations may be called from any thread. An implementation
// is an object of its own behind its behaviour's IEventSource(), since both classes have an operation Add.
class OTX_API IEventSource {
public:
    virtual ~IEventSource();

    // Blocks until an event is there and stores it (true), or until the source is closed (false; the event is untouched).
    // A closed source answers false at once, whatever is still queued.
    virtual bool Wait(COtxValue& event) = 0;
    // A variable that the source monitors was written: the name under which it was attached, and the new value. Sources
    // that monitor nothing ignore it.
    virtual void Changed(const COtxValue& name, const COtxValue& value) = 0;
    // Delivers an event with that value.
    virtual void Put(const COtxValue& value) = 0;
    // Delivers an event with the empty value.
    virtual void Signal() = 0;
    // Takes another source as a member. False for a value that is no event source of this library, and always for a
    // source that is no multi-source. A host makes its sources of COtxSignalEventSource, so that they can be members.
    virtual bool Add(const COtxValue& source) = 0;
    virtual void Close() = 0;
};

}  // namespace OTX
