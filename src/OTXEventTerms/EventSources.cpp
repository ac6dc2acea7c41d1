// The terms that make event sources: of a timer, and of a variable.
#include <OTXCoreTerms/Content.h>
#include <OTXCoreTerms/Evaluate.h>
#include <Trace.h>
#include <otx/event/COtxMonitorChangeEventSource.h>
#include <otx/event/COtxThresholdExceededEventSource.h>
#include <otx/event/COtxTimerExpiredEventSource.h>
#include <schema/Event.h>

namespace Event {

namespace {

// Only the variable's name counts, not a path behind it: a change anywhere in it fires.
COtxValue attached(const COtxValue& source, const otxns::Variable& variable, otxns::OtxContext& context) {
    const auto& name = variable.name();
    context.Variables().GetVariable(name.key())->AddEventSource(name, source);
    return source;
}

}  // namespace

// The timer runs from here, not from the first wait.
template <>
COtxValue TimerExpiredEventSource_impl<TimerExpiredEventSource_base>::eval(otxns::OtxContext& context) const {
    const COtxValue milliseconds = otxns::evaluate(timeout(), context);
    OTX_TRACE(4, "Started timer event source: " << otxns::Shown(milliseconds, context));
    return COtxTimerExpiredEventSource(milliseconds);
}

template <>
COtxValue MonitorChangeEventSource_impl<MonitorChangeEventSource_base>::eval(otxns::OtxContext& context) const {
    return attached(COtxMonitorChangeEventSource(), variable(), context);
}

template <>
COtxValue ThresholdExceededEventSource_impl<ThresholdExceededEventSource_base>::eval(otxns::OtxContext& context) const {
    const COtxValue current = context.Variables().Get(variable().name().key());
    const COtxValue lower = otxns::evaluate(lowerThreshold(), context);
    const COtxValue upper = otxns::evaluate(upperThreshold(), context);
    return attached(COtxThresholdExceededEventSource(lower, upper, current), variable(), context);
}

}  // namespace Event
