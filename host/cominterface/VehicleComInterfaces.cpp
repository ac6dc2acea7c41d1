// The communication interfaces of a described vehicle.
#include "cominterface/VehicleComInterfaces.h"

#include "diag/DiagFailure.h"

#include <algorithm>
#include <utility>

namespace velkotx::host {

using OTX::Exceptions_e;

namespace {

// The state refers to the transport's clock, so it keeps the transport.
std::shared_ptr<ComInterfaceState> makeState(const std::shared_ptr<const VehicleDescription>& vehicle,
                                             const ComInterfaceDescription& description,
                                             const std::shared_ptr<Transport>& transport) {
    struct Kept {
        std::shared_ptr<Transport> transport;
        ComInterfaceState state;
    };
    const auto kept = std::shared_ptr<Kept>(new Kept{
        transport,
        {std::shared_ptr<const ComInterfaceDescription>(vehicle, &description), transport->clock()}});
    return {kept, &kept->state};
}

}  // namespace

VehicleComInterfaces::VehicleComInterfaces(std::shared_ptr<const VehicleDescription> vehicle,
                                           std::shared_ptr<Transport> transport)
    : vehicle_(std::move(vehicle)), transport_(std::move(transport)) {
    for (const ComInterfaceDescription& description : vehicle_->comInterfaces)
        states_.push_back(makeState(vehicle_, description, transport_));
}

ComInterface::CModuleList VehicleComInterfaces::GetModuleList(int connectionStatus) {
    std::vector<ComInterface::CModuleData> modules;
    for (const ComInterfaceDescription& description : vehicle_->comInterfaces) {
        if (connectionStatus == -1 || connectionStatus == static_cast<int>(description.status))
            modules.emplace_back(description.name);
    }
    return ComInterface::CModuleList(std::move(modules));
}

std::string VehicleComInterfaces::GetDefaultComInterfaceName() {
    if (vehicle_->defaultComInterface.empty())
        fail(Exceptions_e::NoDefaultComInterfaceException, "the vehicle has no default communication interface");
    return vehicle_->defaultComInterface;
}

COtxValue VehicleComInterfaces::GetComInterface(const std::string& name) {
    const auto found = std::find_if(states_.begin(), states_.end(),
                                    [&](const auto& state) { return state->description->name == name; });
    if (found == states_.end())
        fail(Exceptions_e::ComInterfaceException, "the vehicle has no communication interface '" + name + "'");
    return COtxValue(std::make_shared<VehicleComInterface>(*found));
}

}  // namespace velkotx::host
