// The transport to a simulated vehicle in this process.
#include "vehicle/SimulatedTransport.h"

#include "vehicle/SimulatedLink.h"

namespace velkotx::host {

SimulatedTransport::SimulatedTransport(std::shared_ptr<const VehicleDescription> description, std::shared_ptr<Clock> clock)
    : vehicle_(std::make_shared<SimulatedVehicle>(std::move(description), std::move(clock))) {}

std::unique_ptr<Link> SimulatedTransport::open(const std::string& controlUnit) {
    if (SimulatedControlUnit* unit = vehicle_->find(controlUnit))
        return std::make_unique<SimulatedLink>(vehicle_, unit, vehicle_->companions(controlUnit));
    if (vehicle_->hasGroup(controlUnit))
        return std::make_unique<SimulatedLink>(vehicle_, nullptr, vehicle_->group(controlUnit));
    throw UnknownControlUnit("no control unit and no group is named \"" + controlUnit + '"');
}

Clock& SimulatedTransport::clock() {
    return vehicle_->clock();
}

}  // namespace velkotx::host
