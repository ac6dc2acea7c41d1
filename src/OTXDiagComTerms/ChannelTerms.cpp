// The terms that ask a channel.
#include <OTXCoreTerms/Asking.h>
#include <otx/diag/IComChannel.h>
#include <schema/DiagCom.h>

namespace DiagCom {

OTX_TERM(GetComParameterValueAsBoolean, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetComParameterValue, comParameterName(), OTX::ValueType::Boolean))
OTX_TERM(GetComParameterValueAsByteField, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetComParameterValue, comParameterName(), OTX::ValueType::ByteField))
OTX_TERM(GetComParameterValueAsFloat, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetComParameterValue, comParameterName(), OTX::ValueType::Float))
OTX_TERM(GetComParameterValueAsInteger, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetComParameterValue, comParameterName(), OTX::ValueType::Integer))
OTX_TERM(GetComParameterValueAsQuantity, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetComParameterValue, comParameterName(), OTX::ValueType::Quantity))
OTX_TERM(GetComParameterValueAsString, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetComParameterValue, comParameterName(), OTX::ValueType::String))
OTX_TERM(GetDefaultComParameterValueAsBoolean, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetDefaultComParameterValue, comParameterName(), OTX::ValueType::Boolean))
OTX_TERM(GetDefaultComParameterValueAsByteField, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetDefaultComParameterValue, comParameterName(), OTX::ValueType::ByteField))
OTX_TERM(GetDefaultComParameterValueAsFloat, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetDefaultComParameterValue, comParameterName(), OTX::ValueType::Float))
OTX_TERM(GetDefaultComParameterValueAsInteger, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetDefaultComParameterValue, comParameterName(), OTX::ValueType::Integer))
OTX_TERM(GetDefaultComParameterValueAsQuantity, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetDefaultComParameterValue, comParameterName(), OTX::ValueType::Quantity))
OTX_TERM(GetDefaultComParameterValueAsString, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetDefaultComParameterValue, comParameterName(), OTX::ValueType::String))

OTX_TERM(CreateDiagServiceByName, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::CreateDiagServiceByName, name()))
OTX_TERM(CreateDiagServiceBySemantic, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::CreateDiagServiceBySemantic, semantic()))
OTX_TERM(GetDiagServiceListBySemantic, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetDiagServiceListBySemantic, semantic()))
OTX_TERM(GetComplexComParameter, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetComplexComParameter, comParameterName()))
OTX_TERM(GetDefaultComplexComParameter, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetDefaultComplexComParameter, comParameterName()))
OTX_TERM(GetComChannelEcuVariantName, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetComChannelEcuVariantName))
// The variant's name is never evaluated; this is meant.
OTX_TERM(IsVariant, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::IsVariant))

}  // namespace DiagCom
