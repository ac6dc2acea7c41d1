// The control units of a simulated vehicle, and who listens to what.
#pragma once

#include <vehicle/SimulatedControlUnit.h>
#include <vehicle/VehicleDescription.h>

#include <transport/Clock.h>

#include <memory>
#include <string>
#include <vector>

namespace velkotx::host {

using Listeners = std::vector<SimulatedControlUnit*>;

// Any thread; what it is made of doesn't change.
class SimulatedVehicle {
public:
    SimulatedVehicle(std::shared_ptr<const VehicleDescription> description, std::shared_ptr<Clock> clock);

    Clock& clock() const { return *clock_; }
    // The control unit of that name, or nullptr.
    SimulatedControlUnit* find(const std::string& name) const;
    // Who listens to a group, or to any of the groups of a control unit.
    Listeners group(const std::string& name) const;
    Listeners companions(const std::string& controlUnit) const;
    bool hasGroup(const std::string& name) const;

private:
    std::shared_ptr<const VehicleDescription> description_;
    std::shared_ptr<Clock> clock_;
    std::vector<std::unique_ptr<SimulatedControlUnit>> units_;  // in the order of the description
};

}  // namespace velkotx::host
