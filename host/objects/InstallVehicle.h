// Gives a Sequencer all host objects over a simulated vehicle.
#pragma once

#include <memory>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

class PduTrace;
struct VehicleDescription;

// Installs a vehicle that has just been switched on, with diagnostics, flash data and communication interfaces. Its time is
// the machine's. The trace sees each PDU; null for none. Not during a run; the objects live as long as the Sequencer.
void installVehicle(Sequencer& sequencer, const std::shared_ptr<const VehicleDescription>& description,
                    const std::shared_ptr<PduTrace>& trace);

}  // namespace velkotx::host
