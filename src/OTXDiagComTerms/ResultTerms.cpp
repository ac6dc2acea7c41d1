// The terms that ask results, responses and messages.
#include <OTXCoreTerms/Asking.h>
#include <Trace.h>
#include <otx/diag/IMessage.h>
#include <otx/diag/IResponse.h>
#include <otx/diag/IResult.h>
#include <schema/DiagCom.h>
#include <velkotx/Exceptions.h>

namespace DiagCom {

OTX_TERM(GetDiagServiceFromResult, otxns::ask(context, result(), &COtxValue::Result, &OTX::IResult::GetDiagServiceFromResult))
OTX_TERM(GetResultState, otxns::ask(context, result(), &COtxValue::Result, &OTX::IResult::GetResultState))
OTX_TERM(GetAllResponses, otxns::ask(context, result(), &COtxValue::Result, &OTX::IResult::GetAllResponses))
OTX_TERM(GetComChannelIdentifierFromResponse, otxns::ask(context, response(), &COtxValue::Response, &OTX::IResponse::GetComChannelIdentifier))
OTX_TERM(GetResponseName, otxns::ask(context, response(), &COtxValue::Response, &OTX::IResponse::GetResponseName))
OTX_TERM(GetResponseState, otxns::ask(context, response(), &COtxValue::Response, &OTX::IResponse::GetResponseState))
OTX_TERM(IsPositive, otxns::ask(context, response(), &COtxValue::Response, &OTX::IResponse::IsPositive))

template <>
COtxValue GetFirstResponse_impl<GetFirstResponse_base>::eval(otxns::OtxContext& context) const {
    const COtxValue ofResult = otxns::evaluate(result(), context);
    const COtxValue response = ofResult.Result().GetFirstResponse();
    OTX_TRACE(4, "getFirstResponse of " << ofResult << ": " << response);
    return response;
}

// The one term here that tests the kind of its operand.
template <>
COtxValue GetPdu_impl<GetPdu_base>::eval(otxns::OtxContext& context) const {
    const COtxValue value = otxns::evaluate(message(), context);
    if (value.Type() != OTX::ValueType::Request && value.Type() != OTX::ValueType::Response)
        throw velkotx::OTXRuntimeException("DiagCom::GetPdu_impl<class DiagCom::GetPdu_base>::eval", "not a message");
    return value.Message().GetPdu();
}

}  // namespace DiagCom
