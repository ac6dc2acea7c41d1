// The terms about screens.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXEventTerms/EventKinds.h>
#include <OTXHMIIF/HMI.h>
#include <OTXHMIIF/Screen.h>
#include <Trace.h>
#include <otx/value/IString.h>
#include <schema/HMI.h>

namespace HMI {

OTX_TERM(ScreenValue, otxns::valueOfVariable(*this, context))
// Of whichever screen: the variable that may be named isn't looked at.
OTX_TERM(IsScreenClosedEvent, otxns::isOfKind(event(), OTX::EventKind::ScreenClosed, context))

template <>
COtxValue ScreenIsOpen_impl<ScreenIsOpen_base>::eval(otxns::OtxContext& context) const {
    const std::string name = screen().read(context).String();
    return COtxBool(context.HMI().screenIsOpen(name));
}

// A screen that isn't open has the empty value for its source.
template <>
COtxValue ScreenClosedEventSource_impl<ScreenClosedEventSource_base>::eval(otxns::OtxContext& context) const {
    const COtxValue name = otxns::evaluate(screen(), context);
    OTX_TRACE(4, "Create screen closed event source: " << name);
    const auto open = context.HMI().getScreen(name.String());
    return open != nullptr ? open->closedSource() : COtxValue();
}

}  // namespace HMI
