// The action that executes a service and maps its parameters.
#include <OTXCoreTerms/Evaluate.h>
#include <OTXEventActions/Waiting.h>
#include <Trace.h>
#include <otx/diag/IDiagService.h>
#include <otx/diag/IParameter.h>
#include <otx/diag/IParameterContainer.h>
#include <otx/diag/IResponse.h>
#include <otx/diag/IResult.h>
#include <otx/value/COtxException.h>
#include <otx/value/IString.h>
#include <schema/DiagCom.h>

namespace DiagCom {

namespace {

// The request's own parameters, one complete before the next path is looked at.
void setParameters(const RequestParameters& parameters, const COtxValue& service, otxns::OtxContext& context) {
    const COtxValue request = service.DiagService().GetRequest();
    for (const RequestParameter& entry : parameters.requestParam()) {
        const COtxValue parameter = request.Container().GetParameterByPath(entry.path().steps(context));
        if (parameter.Type() != OTX::ValueType::Parameter)
            throw COtxException(OTX::Exceptions_e::UnknownTargetException, parameter.ToString().String());
        const COtxValue value = otxns::settled(otxns::evaluate(entry.value(), context), context);
        parameter.Parameter().SetParameterValue(value);
    }
}

// The kind of the target's value selects the conversion, which is the host's.
void extractParameters(const ResponseParameters& entry, const COtxValue& response, otxns::OtxContext& context) {
    if (response.Type() != OTX::ValueType::Response)
        throw COtxException(OTX::Exceptions_e::UnknownResponseException, "");
    for (const ResponseParameter& mapped : entry.responseParam()) {
        const COtxValue parameter = response.Container().GetParameterByPath(mapped.path().steps(context));
        const COtxValue current = mapped.target().read(context);
        mapped.target().write(context, parameter.Parameter().GetParameterValue(current.Type()));
    }
}

// The first entry of the response's name; each name is evaluated afresh.
const ResponseParameters& entryFor(const COtxValue& name, const schema::sequence<ResponseParameters>& entries,
                                   otxns::OtxContext& context) {
    for (const ResponseParameters& entry : entries)
        if (otxns::evaluate(entry.name(), context) == name) return entry;
    throw COtxException(OTX::Exceptions_e::UnknownResponseException,
                        "Response '" + static_cast<std::string>(name.ToString().String()) + "' has not been mapped");
}

void mapResponses(const schema::sequence<ResponseParameters>& entries, const COtxValue& result,
                  otxns::OtxContext& context) {
    constexpr const char* function = "DiagCom::GetResponses";
    // In spite of the words it goes on, and the value refuses; this is meant.
    if (result.Type() != OTX::ValueType::Result) OTX_TRACE_AS(function, 1, "Not a result type, ignored");
    const COtxValue responses = result.Result().GetAllResponses();
    if (entries.empty()) return;
    for (const COtxValue& response : responses.List()) {
        const COtxValue name = response.Response().GetResponseName();
        const ResponseParameters& entry = entryFor(name, entries, context);
        OTX_TRACE_AS(function, 4, "Get parameters from response: " << name);
        extractParameters(entry, response, context);
    }
}

bool isSet(const schema::optional<bool>& attribute) {
    return attribute.present() && attribute.get();
}

}  // namespace

template <>
void ExecuteDiagService_impl<ExecuteDiagService_base>::exec(otxns::OtxContext& context) const {
    const COtxValue service = otxns::evaluate(diagService(), context);
    OTX_TRACE(4, service);
    if (requestParameters().present()) setParameters(requestParameters().get(), service, context);
    const bool suppress = isSet(suppressPositiveResponse());
    // The variables stay as they are in this form; this is meant.
    if (isSet(executeAsync())) return service.DiagService().Execute(suppress);

    // Read before the start: the end may come before the wait.
    const COtxValue source = service.DiagService().EventSource();
    service.DiagService().Execute(suppress);
    // Neither the event nor whether there was one is looked at.
    COtxValue event;
    otxns::waitFor(source, event, context);
    const COtxValue finished = service.DiagService().GetFirstResult();
    if (resultState().present()) resultState()->write(context, finished.Result().GetResultState());
    mapResponses(responseParameters(), finished, context);
    if (result().present()) result()->write(context, finished);
}

}  // namespace DiagCom
