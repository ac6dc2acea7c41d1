// The terms that ask parameters and their containers.
#include <OTXCoreTerms/Asking.h>
#include <Trace.h>
#include <otx/diag/IParameter.h>
#include <otx/diag/IParameterContainer.h>
#include <schema/DiagCom.h>

namespace DiagCom {

OTX_TERM(GetParameterValueAsBoolean, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::GetParameterValue, OTX::ValueType::Boolean))
OTX_TERM(GetParameterValueAsByteField, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::GetParameterValue, OTX::ValueType::ByteField))
OTX_TERM(GetParameterValueAsFloat, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::GetParameterValue, OTX::ValueType::Float))
OTX_TERM(GetParameterValueAsInteger, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::GetParameterValue, OTX::ValueType::Integer))
OTX_TERM(GetParameterValueAsQuantity, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::GetParameterValue, OTX::ValueType::Quantity))
OTX_TERM(GetParameterValueAsString, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::GetParameterValue, OTX::ValueType::String))
OTX_TERM(GetParameterName, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::GetParameterName))
OTX_TERM(GetParameterAsList, otxns::ask(context, parameterContainer(), &COtxValue::Container, &OTX::IParameterContainer::GetParameterAsList))

// What the container gives goes to the document as it comes.
template <>
COtxValue GetParameterByPath_impl<GetParameterByPath_base>::eval(otxns::OtxContext& context) const {
    const COtxValue container = otxns::evaluate(parameterContainer(), context);
    const COtxValue steps = path().steps(context);
    OTX_TRACE(4, "Container: " << container << " Path: " << steps);
    return container.Container().GetParameterByPath(steps);
}

template <>
COtxValue GetParameterBySemantic_impl<GetParameterBySemantic_base>::eval(otxns::OtxContext& context) const {
    const COtxValue container = otxns::evaluate(parameterContainer(), context);
    const COtxValue wanted = otxns::settled(otxns::evaluate(semantic(), context), context);
    OTX_TRACE(4, "Container: " << container << " Semantic: " << wanted);
    return container.Container().GetParameterBySemantic(wanted);
}

}  // namespace DiagCom
