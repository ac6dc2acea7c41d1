// The terms that the standard modules lack.
#include <OTXCoreTerms/Asking.h>
#include <otx/diag/IComInterface.h>
#include <otx/diag/IFlashSession.h>
#include <otx/diag/IParameter.h>
#include <otx/diag/IResponse.h>
#include <schema/ComInterface.h>
#include <schema/CustomTerms.h>
#include <schema/DiagCom.h>
#include <schema/Flash.h>

namespace CustomTerms {

OTX_TERM(GetEncryptCompressMethodOfSegment, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetCompressionEncryption, otxns::integer(block()), otxns::integer(segment())))
OTX_TERM(GetFlashDataAddressLength, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetFlashDataAddressLength, otxns::integer(block())))
OTX_TERM(GetFlashDataSizeLength, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetFlashDataSizeLength, otxns::integer(block())))
OTX_TERM(GetLogicalBlockIndex, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetLogicalBlockIndex, otxns::integer(block())))
OTX_TERM(GetMaxNumberOfBlockLength, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetMaxNumberOfBlockLength, otxns::integer(block())))
OTX_TERM(GetSecurityAccessLevel, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetSecurityAccessLevel))
OTX_TERM(GetParameterDefaultValue, otxns::ask(context, parameter(), &COtxValue::Parameter, &OTX::IParameter::GetParameterDefaultValue))
OTX_TERM(GetResponseTimestamp, otxns::ask(context, response(), &COtxValue::Response, &OTX::IResponse::GetResponseTimestamp))

// A pin beyond 32 bits wraps; this is meant.
template <>
COtxValue GetIgnitionStateOnPinFromComInterface_impl<GetIgnitionStateOnPinFromComInterface_base>::eval(
    otxns::OtxContext& context) const {
    const COtxValue asked = otxns::evaluate(comInterface(), context);
    OTX::IComInterface& vehicle = asked.ComInterface();
    const auto pin = static_cast<std::int32_t>(otxns::operandValue(otxns::integer(pinNumber()), context));
    return COtxBool(vehicle.GetIgnitionState(pin));
}

}  // namespace CustomTerms
