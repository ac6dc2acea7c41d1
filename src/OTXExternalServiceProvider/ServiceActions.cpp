// The actions that make a provider, run and end its services, and dispose of it.
#include <OTXCoreTerms/Asking.h>
#include <OTXEventActions/Waiting.h>
#include <OTXEventTerms/EventKinds.h>
#include <OTXExternalServiceProvider/HostServiceInterface.h>
#include <Trace.h>
#include <otx/diag/IServiceProvider.h>
#include <otx/event/IEvent.h>
#include <otx/provider/ServiceProviderFactory.h>
#include <otx/value/COtxException.h>
#include <otx/value/IException.h>
#include <schema/ExternalServiceProvider.h>

#include <map>
#include <memory>
#include <string>

namespace ExternalServiceProvider {

namespace {

using Values = std::map<std::string, COtxValue>;
using Cells = std::map<std::string, std::shared_ptr<OtxVariable>>;

// The last argument of a name counts.
template <class Arguments>
Values valuesOf(const Arguments& arguments, otxns::OtxContext& context) {
    Values values;
    for (const ExternalInArgument& argument : arguments)
        values.insert_or_assign(argument.parameter(), otxns::settled(otxns::evaluate(argument.term(), context), context));
    return values;
}

// The variables themselves, which the provider writes. Only the variable's name counts, not a path behind it.
template <class Arguments>
Cells cellsOf(const Arguments& arguments, otxns::OtxContext& context) {
    Cells cells;
    for (const auto& argument : arguments)
        cells.insert_or_assign(argument.parameter(), context.Variables().GetVariable(argument.target().name().key()));
    return cells;
}

constexpr const char* execution =
    "ExternalServiceProvider::ExecuteService_impl<ExternalServiceProvider::ExecuteService_base>::exec";

// The action looks at the kind of the event alone, and no term gives its value: the failure shows here or nowhere.
void tellOfFailure(const std::string& service, const COtxValue& result) {
    if (result.Type() != OTX::ValueType::Exception) return;
    const OTX::IException& failure = result.Exception();
    OTX_TRACE_AS(execution, 0, "Service '" << service << "' failed: " << failure.Name() << ": " << failure.Text());
}

// Whether there was an event isn't looked at: a closed source shows in the refusal of the empty value. This is meant.
void waitForEnd(const std::string& service, const COtxValue& handle, otxns::OtxContext& context) {
    const COtxValue source = handle.ServiceProviderService().FinishedEventSource();
    COtxValue event;
    otxns::waitFor(source, event, context);
    const OTX::IEvent& end = event.Event();
    if (otxns::isOfKind(end, OTX::EventKind::ServiceExecutionFinished)) {
        tellOfFailure(service, end.Value());
        return;
    }
    OTX_TRACE_AS(execution, 0, "Unexpected event type fired during service execution");
    throw COtxException(OTX::Exceptions_e::TypeMismatchException, "");
}

}  // namespace

template <>
void CreateProvider_impl<CreateProvider_base>::exec(otxns::OtxContext& context) const {
    Values values;
    if (arguments().present()) values = valuesOf(arguments()->inArgument(), context);
    const std::string constructorName = constructor().present() ? std::string(constructor().get()) : std::string();
    OTX_TRACE(4, "CreateProvider" << providerType() << "(" << constructorName << ")");
    const auto host = context.HostService();
    serviceProvider().write(context, context.ServiceProviderFactory().Create(host, providerType(), constructorName, values));
}

// The attribute providerType plays no part; this is meant.
template <>
void ExecuteService_impl<ExecuteService_base>::exec(otxns::OtxContext& context) const {
    const bool isAsync = executeAsync().present() && executeAsync().get();
    // The flag is the asynchronous one, whatever the words say; this is meant.
    OTX_TRACE(4, "Execute service sync: " << isAsync);
    const COtxValue provider = otxns::evaluate(serviceProvider(), context);
    Values in;
    Cells inout;
    Cells out;
    if (arguments().present()) {
        in = valuesOf(arguments()->inArgument(), context);
        inout = cellsOf(arguments()->inoutArgument(), context);
        out = cellsOf(arguments()->outArgument(), context);
    }
    const COtxValue handle = provider.ServiceProvider().Execute(service(), in, inout, out);
    // Ahead of the wait, so that another lane may terminate the service.
    if (serviceHandle().present()) serviceHandle()->write(context, handle);
    if (!isAsync) waitForEnd(service(), handle, context);
}

template <>
void TerminateService_impl<TerminateService_base>::exec(otxns::OtxContext& context) const {
    OTX_TRACE(4, "Terminate service provider service");
    const COtxValue service = otxns::evaluate(serviceHandle(), context);
    const COtxValue result = service.ServiceProviderService().Terminate();
    if (isTerminated().present()) isTerminated()->write(context, result);
}

OTX_ACTION(DisposeProvider, otxns::tell(context, serviceProvider(), &COtxValue::ServiceProvider, &OTX::IServiceProvider::Dispose))

}  // namespace ExternalServiceProvider
