// The actions that are one call of a channel, a service, a request or a parameter.
#include <OTXCoreTerms/Asking.h>
#include <otx/diag/IComChannel.h>
#include <otx/diag/IDiagService.h>
#include <otx/diag/IMessage.h>
#include <otx/diag/IParameter.h>
#include <otx/diag/IParameterContainer.h>
#include <otx/diag/IRequest.h>
#include <schema/DiagCom.h>

namespace DiagCom {

OTX_ACTION(CloseComChannel, otxns::tell(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::CloseComChannel))
OTX_ACTION(IdentifyAndSelectVariant, otxns::tell(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::IdentifyAndSelectVariant))
OTX_ACTION(SetComplexComParameter, otxns::tell(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::SetComplexComParameter, parameter()))
OTX_ACTION(SetParameterValue, otxns::tell(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::SetParameterValue, value()))
OTX_ACTION(SetParameterValueBySemantic, otxns::tell(context, parameterContainer(), &COtxValue::Container, &OTX::IParameterContainer::SetParameterValueBySemantic, semantic(), value()))
OTX_ACTION(SetPdu, otxns::tell(context, request(), &COtxValue::Request, &OTX::IRequest::SetPdu, pdu()))
OTX_ACTION(SetRepetitionTime, otxns::tell(context, diagService(), &COtxValue::DiagService, &OTX::IDiagService::SetRepetitionTime, repetitionTime()))
OTX_ACTION(StartRepeatedExecution, otxns::tell(context, diagService(), &COtxValue::DiagService, &OTX::IDiagService::StartRepeatedExecution))
OTX_ACTION(StopRepeatedExecution, otxns::tell(context, diagService(), &COtxValue::DiagService, &OTX::IDiagService::StopRepeatedExecution))

template <>
void GetAllResultsAndClear_impl<GetAllResultsAndClear_base>::exec(otxns::OtxContext& context) const {
    const COtxValue service = otxns::evaluate(diagService(), context);
    resultList().write(context, service.DiagService().GetAllResultsAndClear());
}

template <>
void ExecuteHexDiagService_impl<ExecuteHexDiagService_base>::exec(otxns::OtxContext& context) const {
    const COtxValue request = otxns::evaluate(hexRequest(), context);
    const COtxValue channel = otxns::evaluate(comChannel(), context);
    const bool wantResponse = hexResponse().present();
    const COtxValue message = channel.ComChannel().ExecuteHexDiagService(request, wantResponse);
    if (wantResponse) hexResponse()->write(context, message.Message().GetPdu());
}

}  // namespace DiagCom
