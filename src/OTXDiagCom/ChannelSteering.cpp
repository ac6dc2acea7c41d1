// The terms and actions that make, start and stop channels.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXCoreTypes/InitialValue.h>
#include <otx/diag/IComChannel.h>
#include <otx/host/DiagComHost.h>
#include <otx/value/COtxComChannelState.h>
#include <otx/value/COtxString.h>
#include <schema/DiagComPlus.h>

namespace DiagComPlus {

OTX_TERM(GetComChannelState, otxns::ask(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::GetComChannelState))
OTX_TERM(ComChannelStateValue, otxns::valueOfVariable(*this, context))
OTX_TERM(ComChannelStateLiteral, COtxComChannelState(static_cast<COtxComChannelState::ComChannelState>(value().number())))
OTX_TERM(ComChannelState, otxns::initialValue(*this, context, [] { return COtxComChannelState(COtxComChannelState::Offline); }))

OTX_ACTION(StartCommunication, otxns::tell(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::StartCommunication))
OTX_ACTION(StopCommunication, otxns::tell(context, comChannel(), &COtxValue::ComChannel, &OTX::IComChannel::StopCommunication))

template <>
COtxValue CreateComChannel_impl<CreateComChannel_base>::eval(otxns::OtxContext& context) const {
    const COtxValue name = otxns::evaluate(identifier(), context);
    const COtxValue variant = otxns::evaluateOr(ecuVariantName(), COtxString(), context);
    return context.DiagCom().CreateComChannel(name, variant);
}

template <>
void ExecuteHexDiagServiceFunctional_impl<ExecuteHexDiagServiceFunctional_base>::exec(otxns::OtxContext& context) const {
    const COtxValue bytes = otxns::evaluate(request(), context);
    const COtxValue channel = otxns::evaluate(comChannel(), context);
    responses().write(context, channel.ComChannel().ExecuteHexDiagServiceFunctional(bytes));
}

}  // namespace DiagComPlus
