// The action that closes event sources.
#include <OTXContext/OtxContext.h>
#include <otx/event/IEventSource.h>
#include <schema/Event.h>

namespace Event {

// A variable that holds no source ends the action: those behind it stay open.
template <>
void CloseEventSource_impl<CloseEventSource_base>::exec(otxns::OtxContext& context) const {
    for (const EventSourceVariable& variable : source()) variable.read(context).EventSource().Close();
}

}  // namespace Event
