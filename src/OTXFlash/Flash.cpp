// The terms and the action that read flash data.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXCoreTypes/InitialValue.h>
#include <OTXFlash/COtxAudience.h>
#include <otx/diag/IFlashSession.h>
#include <otx/host/FlashHost.h>
#include <schema/Flash.h>

namespace Flash {

OTX_TERM(GetSessionID, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetSessionID))
OTX_TERM(GetNumberOfBlocks, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetNumberOfBlocks))
OTX_TERM(GetNumberOfSegments, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetNumberOfSegments, otxns::integer(block())))
OTX_TERM(GetStartAddress, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetStartAddress, otxns::integer(block()), otxns::integer(segment())))
OTX_TERM(GetUncompressedSize, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetUncompressedSize, otxns::integer(block()), otxns::integer(segment())))
OTX_TERM(GetCompressedSize, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetCompressedSize, otxns::integer(block()), otxns::integer(segment())))
OTX_TERM(GetLogicalBlockID, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetLogicalBlockID, otxns::integer(block())))
OTX_TERM(GetNumberOfOwnIdents, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetNumberOfOwnIdents, otxns::integer(block())))
OTX_TERM(GetOwnIdent, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetOwnIdent, otxns::integer(block()), otxns::integer(number())))
OTX_TERM(GetNumberOfSecurities, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetNumberOfSecurities, otxns::optionalInteger(block())))
OTX_TERM(GetSecurityMethod, otxns::ask(context, session(), &COtxValue::FlashSession, &OTX::IFlashSession::GetSecurityMethod, otxns::optionalInteger(block()), otxns::integer(security())))
OTX_TERM(AudienceValue, otxns::valueOfVariable(*this, context))
OTX_TERM(FlashSessionValue, otxns::valueOfVariable(*this, context))
OTX_TERM(AudienceLiteral, COtxAudience(value().number()))
OTX_TERM(Audience, otxns::initialValue(*this, context, [] { return COtxAudience(COtxAudience::Supplier); }))

// The one term that converts its block first; this is meant.
template <>
COtxValue GetCompressionEncryption_impl<GetCompressionEncryption_base>::eval(otxns::OtxContext& context) const {
    const COtxValue flashSession = otxns::evaluate(session(), context);
    OTX::IFlashSession& asked = flashSession.FlashSession();
    return asked.GetCompressionEncryption(otxns::evaluateInteger(block(), context), -1);
}

// The security is evaluated ahead of the block.
template <>
COtxValue GetChecksum_impl<GetChecksum_base>::eval(otxns::OtxContext& context) const {
    const COtxValue flashSession = otxns::evaluate(session(), context);
    OTX::IFlashSession& asked = flashSession.FlashSession();
    const auto ofSecurity = otxns::operandValue(otxns::integer(security()), context);
    const auto ofBlock = otxns::operandValue(otxns::optionalInteger(block()), context);
    return asked.GetChecksum(ofBlock, ofSecurity);
}

template <>
COtxValue GetFlashSession_impl<GetFlashSession_base>::eval(otxns::OtxContext& context) const {
    const COtxValue wanted = otxns::evaluate(sessionID(), context);
    return context.Flash().GetFlashSession(wanted);
}

// The channel is never evaluated; this is meant.
template <>
COtxValue GetListOfValidFlashSessions_impl<GetListOfValidFlashSessions_base>::eval(otxns::OtxContext& context) const {
    const auto forWhom = static_cast<int>(otxns::operandValue(otxns::optionalInteger(audience()), context));
    return context.Flash().GetListOfValidFlashSessions(direction(), forWhom);
}

// The size is evaluated ahead of the position.
template <>
void GetDownloadData_impl<GetDownloadData_base>::exec(otxns::OtxContext& context) const {
    const COtxValue flashSession = otxns::evaluate(session(), context);
    const auto ofBlock = otxns::operandValue(otxns::integer(block()), context);
    const auto ofSegment = otxns::operandValue(otxns::integer(segment()), context);
    const auto length = otxns::operandValue(otxns::integer(size()), context);
    const auto from = otxns::operandValue(otxns::integer(position()), context);
    data().write(context, flashSession.FlashSession().GetDownloadData(ofBlock, ofSegment, length, from));
}

}  // namespace Flash
