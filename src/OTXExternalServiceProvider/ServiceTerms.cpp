// The terms that ask a provider, a service, and their events.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXEventTerms/EventKinds.h>
#include <otx/diag/IServiceProvider.h>
#include <otx/value/COtxString.h>
#include <schema/ExternalServiceProvider.h>

namespace ExternalServiceProvider {

OTX_TERM(ServiceProviderValue, otxns::valueOfVariable(*this, context))
OTX_TERM(ServiceValue, otxns::valueOfVariable(*this, context))

OTX_TERM(IsDisposed, otxns::ask(context, serviceProvider(), &COtxValue::ServiceProvider, &OTX::IServiceProvider::IsDisposed))
OTX_TERM(IsServiceRunning, otxns::ask(context, serviceHandle(), &COtxValue::ServiceProviderService, &OTX::IServiceProviderService::IsRunning))
OTX_TERM(ServiceExecutionFinishedEventSource, otxns::ask(context, serviceHandle(), &COtxValue::ServiceProviderService, &OTX::IServiceProviderService::FinishedEventSource))

// The kind alone counts: services, providers, types and names of events aren't looked at; this is meant.
OTX_TERM(IsServiceExecutionFinishedEvent, otxns::isOfKind(event(), OTX::EventKind::ServiceExecutionFinished, context))
OTX_TERM(IsServiceProviderEvent, otxns::isOfKind(event(), OTX::EventKind::ServiceProvider, context))

// These three evaluate nothing, and the texts differ in case; this is meant.
OTX_TERM(GetProperty, COtxBool(false))
OTX_TERM(GetServiceProviderFromEvent, COtxString("not implemented"))
OTX_TERM(ServiceProviderEventSource, COtxString("Not implemented"))

}  // namespace ExternalServiceProvider
