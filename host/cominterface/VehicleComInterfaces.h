// The communication interfaces of a described vehicle.
#pragma once

#include "cominterface/VehicleComInterface.h"

#include <transport/Transport.h>
#include <vehicle/VehicleDescription.h>

#include <otx/host/ComInterfaceHost.h>

#include <memory>
#include <string>
#include <vector>

namespace velkotx::host {

// Each GetComInterface gives a handle of its own on the one interface of that name. Any thread.
class VehicleComInterfaces final : public ComInterfaceHost {
public:
    // The clock is the transport's, so that voltages and answers follow the same time.
    VehicleComInterfaces(std::shared_ptr<const VehicleDescription> vehicle, std::shared_ptr<Transport> transport);

    // In the order of the description.
    ComInterface::CModuleList GetModuleList(int connectionStatus) override;
    // Throws kind 33 when there is none.
    std::string GetDefaultComInterfaceName() override;
    // Throws kind 31 for an unknown name.
    COtxValue GetComInterface(const std::string& name) override;

private:
    const std::shared_ptr<const VehicleDescription> vehicle_;
    const std::shared_ptr<Transport> transport_;
    std::vector<std::shared_ptr<ComInterfaceState>> states_;
};

}  // namespace velkotx::host
