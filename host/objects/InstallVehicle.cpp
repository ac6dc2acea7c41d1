// Gives a Sequencer all host objects over a simulated vehicle.
#include "objects/InstallVehicle.h"

#include <cominterface/VehicleComInterfaces.h>
#include <diag/VehicleDiagCom.h>
#include <flash/VehicleFlash.h>
#include <vehicle/SimulatedTransport.h>
#include <vehicle/SystemClock.h>

#include <velkotx/Sequencer.h>

namespace velkotx::host {

void installVehicle(Sequencer& sequencer, const std::shared_ptr<const VehicleDescription>& description,
                    const std::shared_ptr<PduTrace>& trace) {
    const auto transport = std::make_shared<SimulatedTransport>(description, std::make_shared<SystemClock>());
    sequencer.SetDiagCom(std::make_shared<VehicleDiagCom>(description, transport, trace));
    sequencer.SetFlash(std::make_shared<VehicleFlash>(description));
    sequencer.SetComInterface(std::make_shared<VehicleComInterfaces>(description, transport));
}

}  // namespace velkotx::host
