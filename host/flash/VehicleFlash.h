// The flash data of a described vehicle.
#pragma once

#include <vehicle/VehicleDescription.h>

#include <otx/host/FlashHost.h>

#include <memory>
#include <string>

namespace velkotx::host {

// Immutable; any thread.
class VehicleFlash final : public FlashHost {
public:
    explicit VehicleFlash(std::shared_ptr<const VehicleDescription> vehicle);

    // Values of type FlashSession, in the order of the description. A session that names no audience is for all. Throws
    // kind 26 for a direction that is none.
    COtxValue GetListOfValidFlashSessions(const std::string& direction, int audience) override;
    // By its id; a FlashSession stands for itself. Throws kind 26 for an unknown one.
    COtxValue GetFlashSession(COtxValue sessionId) override;

private:
    const std::shared_ptr<const VehicleDescription> vehicle_;
};

}  // namespace velkotx::host
