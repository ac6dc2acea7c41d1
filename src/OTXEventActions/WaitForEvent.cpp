// The action that waits for the first event of its sources.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <OTXEventActions/Waiting.h>
#include <Trace.h>
#include <otx/event/COtxMultiEventSource.h>
#include <otx/value/COtxException.h>
#include <schema/Event.h>

#include <vector>

namespace Event {

namespace {

constexpr const char* closed = "EventSource has been closed";

// A list adds what it holds, to any depth.
void addEvent(const COtxValue& multiSource, const COtxValue& value, otxns::OtxContext& context) {
    if (value.Type() == OTX::ValueType::List) {
        otxns::requireStack();
        const auto items = otxns::lookInto(context, [&] { return std::vector<COtxValue>(value.List()); });
        for (const COtxValue& item : items) addEvent(multiSource, item, context);
        return;
    }
    if (multiSource.EventSource().Add(value)) return;
    OTX_TRACE_AS("Event::addEvent", 0, "not an eventSource: " << otxns::Shown(value, context));
    throw COtxException(OTX::Exceptions_e::TypeMismatchException, "");
}

// A single source is waited on as it is: a list in its place isn't unfolded.
COtxValue sourceOf(const schema::sequence<EventSourceTerm>& terms, otxns::OtxContext& context) {
    if (terms.size() == 1) return otxns::evaluate(terms.front(), context);
    const COtxMultiEventSource all;
    for (const EventSourceTerm& term : terms) addEvent(all, otxns::evaluate(term, context), context);
    return all;
}

}  // namespace

template <>
void WaitForEvent_impl<WaitForEvent_base>::exec(otxns::OtxContext& context) const {
    OTX_TRACE(4, "WaitForEvent");
    if (source().empty()) return;
    COtxValue received;
    const COtxValue waitedFor = sourceOf(source(), context);
    if (!otxns::waitFor(waitedFor, received, context))
        throw COtxException(OTX::Exceptions_e::InvalidReferenceException, closed);
    if (event().present()) event()->write(context, received);
    OTX_TRACE(4, "Got: " << otxns::Shown(received, context));
}

}  // namespace Event
