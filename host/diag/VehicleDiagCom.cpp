// The host's way to the control units of a described vehicle.
#include "diag/VehicleDiagCom.h"

#include "cominterface/PduComInterface.h"
#include "diag/DiagFailure.h"

#include <algorithm>
#include <utility>

namespace velkotx::host {

using OTX::Exceptions_e;

namespace {

// By name, in the vector.
template <class Described>
const Described* find(const std::vector<Described>& all, const std::string& name) {
    const auto found = std::find_if(all.begin(), all.end(), [&](const Described& one) { return one.name == name; });
    return found == all.end() ? nullptr : &*found;
}

void requireInterface(const std::shared_ptr<ComInterface::IPduComInterface>& comInterface) {
    const auto* const own = dynamic_cast<const PduComInterface*>(comInterface.get());
    if (own == nullptr)
        fail(Exceptions_e::UnknownComChannelException, "a channel needs a communication interface of this host");
    own->requireConnected();
}

}  // namespace

VehicleDiagCom::VehicleDiagCom(std::shared_ptr<const VehicleDescription> vehicle, std::shared_ptr<Transport> transport,
                               std::shared_ptr<PduTrace> trace)
    : vehicle_(std::move(vehicle)), transport_(std::move(transport)), trace_(std::move(trace)) {}

ChannelTarget VehicleDiagCom::target(const std::string& identifier) const {
    const ControlUnitDescription* const unit = find(vehicle_->controlUnits, identifier);
    if (unit == nullptr && find(vehicle_->groups, identifier) == nullptr)
        fail(Exceptions_e::UnknownComChannelException,
             "the vehicle has no control unit or functional group '" + identifier + "'");
    return {vehicle_, identifier, unit};
}

VehicleDiagCom::Channel VehicleDiagCom::create(const COtxValue& identifier, const COtxValue& ecuVariantName) const {
    const std::string& name = identifier.String();
    auto described = target(name);
    auto channel =
        std::make_shared<DiagChannel>(std::move(described), std::make_shared<UdsChannel>(transport_, name, trace_));
    channel->selectVariant(ecuVariantName.String());
    return channel;
}

// Called under the lock.
VehicleDiagCom::Channel VehicleDiagCom::known(const std::string& identifier, const std::string& ecuVariantName) const {
    const auto found = channels_.find(identifier);
    Channel channel = found == channels_.end() ? nullptr : found->second.lock();
    if (channel == nullptr || channel->isClosed())
        return nullptr;
    return ecuVariantName.empty() || channel->variantName() == ecuVariantName ? channel : nullptr;
}

VehicleDiagCom::Channel VehicleDiagCom::open(const COtxValue& identifier, const COtxValue& ecuVariantName) {
    const std::string& name = identifier.String();
    const std::string& variant = ecuVariantName.String();
    const Channel made = create(identifier, ecuVariantName);
    const std::lock_guard guard(channelsLock_);
    // Lanes that ask at once get the same.
    if (Channel channel = known(name, variant))
        return channel;
    channels_[name] = made;
    return made;
}

COtxValue VehicleDiagCom::GetComChannel(const COtxValue& identifier, const COtxValue& ecuVariantName,
                                        const COtxValue& performVariantSelection) {
    const bool identify = performVariantSelection.Bool();
    const Channel channel = open(identifier, ecuVariantName);
    channel->StartCommunication();
    if (identify)
        channel->IdentifyAndSelectVariant();
    return COtxValue(channel);
}

COtxValue VehicleDiagCom::CreateComChannel(const COtxValue& identifier, const COtxValue& ecuVariantName) {
    return COtxValue(create(identifier, ecuVariantName));
}

COtxValue VehicleDiagCom::GetComChannelFromComInterface(
    const std::shared_ptr<ComInterface::IPduComInterface>& comInterface, const COtxValue& identifier,
    const COtxValue& ecuVariantName, const COtxValue& performVariantSelection) {
    requireInterface(comInterface);
    return GetComChannel(identifier, ecuVariantName, performVariantSelection);
}

COtxValue VehicleDiagCom::CreateComChannelFromComInterface(
    const std::shared_ptr<ComInterface::IPduComInterface>& comInterface, const COtxValue& identifier,
    const COtxValue& ecuVariantName) {
    requireInterface(comInterface);
    return CreateComChannel(identifier, ecuVariantName);
}

}  // namespace velkotx::host
