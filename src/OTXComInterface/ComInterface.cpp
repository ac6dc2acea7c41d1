// The terms and actions of vehicle communication interfaces.
#include <OTXCoreTerms/Asking.h>
#include <OTXComInterface/COtxConnectionStatus.h>
#include <OTXComInterface/PduInterface.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <OTXCoreTypes/InitialValue.h>
#include <Trace.h>
#include <otx/diag/IComInterface.h>
#include <otx/host/ComInterfaceHost.h>
#include <otx/host/DiagComHost.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxString.h>
#include <otx/value/IString.h>
#include <schema/ComInterface.h>

namespace ComInterface {

OTX_ACTION(ActivateEthernet, otxns::tell(context, comInterface(), &COtxValue::ComInterface, &OTX::IComInterface::ActivateEthernet))
OTX_ACTION(DeactivateEthernet, otxns::tell(context, comInterface(), &COtxValue::ComInterface, &OTX::IComInterface::DeactivateEthernet))
OTX_ACTION(CloseComInterface, otxns::tell(context, comInterface(), &COtxValue::ComInterface, &OTX::IComInterface::CloseComInterface))
OTX_TERM(IsEthernetActivated, otxns::ask(context, comInterface(), &COtxValue::ComInterface, &OTX::IComInterface::IsEthernetActivated))
OTX_TERM(IsInterfaceConnected, otxns::ask(context, comInterface(), &COtxValue::ComInterface, &OTX::IComInterface::IsInterfaceConnected))
OTX_TERM(GetComInterfaceProperties, otxns::ask(context, comInterface(), &COtxValue::ComInterface, &OTX::IComInterface::GetComInterfaceProperties))
OTX_TERM(GetComInterfaceResourceNameList, otxns::ask(context, comInterface(), &COtxValue::ComInterface, &OTX::IComInterface::GetComInterfaceResourceNameList))
OTX_TERM(GetBatteryVoltageFromComInterface, otxns::ask(context, comInterface(), &COtxValue::ComInterface, &OTX::IComInterface::GetBatteryVoltage))
OTX_TERM(GetIgnitionStateFromComInterface, otxns::ask(context, comInterface(), &COtxValue::ComInterface, &OTX::IComInterface::GetIgnitionState, std::int64_t{0}))
OTX_TERM(ConnectionStatusValue, otxns::valueOfVariable(*this, context))
OTX_TERM(ConnectionStatusLiteral, COtxConnectionStatus(value().number()))
OTX_TERM(ConnectionStatus, otxns::initialValue(*this, context, [] { return COtxConnectionStatus(COtxConnectionStatus::NotConnected); }))

template <>
COtxValue ComInterfaceValue_impl<ComInterfaceValue_base>::eval(otxns::OtxContext& context) const {
    OTX_TRACE(4, valueOf());
    return otxns::valueOfVariable(*this, context);
}

template <>
COtxValue GetComInterfaceNameList_impl<GetComInterfaceNameList_base>::eval(otxns::OtxContext& context) const {
    const auto status = static_cast<int>(otxns::operandValue(otxns::optionalInteger(connectionStatus()), context));
    const CModuleList modules = context.ComInterface().GetModuleList(status);
    std::vector<COtxValue> names;
    for (int i = 0; i < modules.Size(); ++i) names.push_back(COtxString(modules.ModuleData(i).Name()));
    return COtxList(std::move(names));
}

template <>
COtxValue GetComInterface_impl<GetComInterface_base>::eval(otxns::OtxContext& context) const {
    const std::string name = otxns::evaluate(comInterfaceName(), context).String();
    OTX_TRACE(4, name);
    return context.ComInterface().GetComInterface(name);
}

template <>
COtxValue GetDefaultComInterfaceName_impl<GetDefaultComInterfaceName_base>::eval(otxns::OtxContext& context) const {
    const std::string name = context.ComInterface().GetDefaultComInterfaceName();
    OTX_TRACE(4, name);
    return COtxString(name);
}

template <>
COtxValue GetComInterfaceNameListFromEthernet_impl<GetComInterfaceNameListFromEthernet_base>::eval(
    otxns::OtxContext& context) const {
    const COtxValue option = otxns::evaluate(optionString(), context);
    COtxValue asked;
    if (comInterface().present()) {
        asked = otxns::evaluate(comInterface().get(), context);
    } else {
        ComInterfaceHost& host = context.ComInterface();
        asked = host.GetComInterface(host.GetDefaultComInterfaceName());
    }
    return asked.ComInterface().GetComInterfaceNameListFromEthernet(option.String());
}

// The resource is never evaluated; this is meant.
template <>
COtxValue GetComChannelFromComInterface_impl<GetComChannelFromComInterface_base>::eval(otxns::OtxContext& context) const {
    const COtxValue asked = otxns::evaluate(comInterface(), context);
    const COtxValue name = otxns::evaluate(identifier(), context);
    const COtxValue selection = otxns::evaluateOr(performVariantSelection(), COtxBool(false), context);
    const COtxValue variant = otxns::evaluateOr(ecuVariantName(), COtxString(), context);
    return context.DiagCom().GetComChannelFromComInterface(pduInterfaceOf(asked), name, variant, selection);
}

}  // namespace ComInterface
