// The terms that take an event apart.
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXEventTerms/EventKinds.h>
#include <otx/value/COtxException.h>
#include <otx/value/IString.h>
#include <schema/Event.h>

namespace Event {

namespace {

bool tellsOfVariable(const OTX::IEvent& event) {
    return otxns::isOfKind(event, OTX::EventKind::MonitorChange) ||
           otxns::isOfKind(event, OTX::EventKind::ThresholdExceeded);
}

}  // namespace

template <>
COtxValue EventValue_impl<EventValue_base>::eval(otxns::OtxContext& context) const {
    return otxns::valueOfVariable(*this, context);
}

template <>
COtxValue EventSourceValue_impl<EventSourceValue_base>::eval(otxns::OtxContext& context) const {
    return otxns::valueOfVariable(*this, context);
}

template <>
COtxValue IsTimerExpiredEvent_impl<IsTimerExpiredEvent_base>::eval(otxns::OtxContext& context) const {
    return otxns::isOfKind(event(), OTX::EventKind::TimerExpired, context);
}

template <>
COtxValue IsThresholdExceededEvent_impl<IsThresholdExceededEvent_base>::eval(otxns::OtxContext& context) const {
    return otxns::isOfKind(event(), OTX::EventKind::ThresholdExceeded, context);
}

// A threshold event counts as a change too, unlike the other way round; this is meant.
template <>
COtxValue IsMonitorChangeEvent_impl<IsMonitorChangeEvent_base>::eval(otxns::OtxContext& context) const {
    const COtxValue value = otxns::evaluate(event(), context);
    const OTX::IEvent& received = value.Event();
    if (!tellsOfVariable(received)) return COtxBool(false);
    return COtxBool(!variable().present() || received.Name().String() == variable()->name());
}

template <>
COtxValue GetNewValue_impl<GetNewValue_base>::eval(otxns::OtxContext& context) const {
    const COtxValue value = otxns::evaluate(event(), context);
    const OTX::IEvent& received = value.Event();
    if (tellsOfVariable(received)) return received.Value();
    throw COtxException(OTX::Exceptions_e::TypeMismatchException,
                        "Unexpected event type " + otxns::textOf(value, context));
}

}  // namespace Event
