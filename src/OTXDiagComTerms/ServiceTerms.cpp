// The terms that ask a service, and its events.
#include <OTXCoreTerms/Asking.h>
#include <OTXEventTerms/EventKinds.h>
#include <Trace.h>
#include <otx/diag/IDiagService.h>
#include <schema/DiagCom.h>

namespace DiagCom {

OTX_TERM(GetDiagServiceName, otxns::ask(context, diagService(), &COtxValue::DiagService, &OTX::IDiagService::GetDiagServiceName))
OTX_TERM(GetRequest, otxns::ask(context, diagService(), &COtxValue::DiagService, &OTX::IDiagService::GetRequest))
OTX_TERM(GetAllResults, otxns::ask(context, diagService(), &COtxValue::DiagService, &OTX::IDiagService::GetAllResults))
OTX_TERM(GetRepetitionTime, otxns::ask(context, diagService(), &COtxValue::DiagService, &OTX::IDiagService::GetRepetitionTime))

template <>
COtxValue GetFirstResult_impl<GetFirstResult_base>::eval(otxns::OtxContext& context) const {
    const COtxValue service = otxns::evaluate(diagService(), context);
    const COtxValue result = service.DiagService().GetFirstResult();
    OTX_TRACE(4, "getFirstResult on diagService " << service << ": " << result);
    return result;
}

template <>
COtxValue DiagServiceEventSource_impl<DiagServiceEventSource_base>::eval(otxns::OtxContext& context) const {
    const COtxValue service = otxns::evaluate(diagService(), context);
    OTX_TRACE(4, "Create diag service event source: " << service);
    return service.DiagService().EventSource();
}

template <>
COtxValue IsDiagServiceEvent_impl<IsDiagServiceEvent_base>::eval(otxns::OtxContext& context) const {
    return otxns::isOfKind(event(), OTX::EventKind::DiagService, context);
}

template <>
COtxValue GetDiagServiceFromEvent_impl<GetDiagServiceFromEvent_base>::eval(otxns::OtxContext& context) const {
    const COtxValue received = otxns::evaluate(event(), context);
    return received.Event().Value();
}

}  // namespace DiagCom
