// The control units of a simulated vehicle.
#include "vehicle/SimulatedVehicle.h"

#include <algorithm>

namespace velkotx::host {

namespace {

bool contains(const std::vector<std::string>& all, const std::string& one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

bool shareOne(const std::vector<std::string>& groups, const std::vector<std::string>& others) {
    return std::any_of(groups.begin(), groups.end(), [&](const std::string& group) { return contains(others, group); });
}

}  // namespace

SimulatedVehicle::SimulatedVehicle(std::shared_ptr<const VehicleDescription> description, std::shared_ptr<Clock> clock)
    : description_(std::move(description)), clock_(std::move(clock)) {
    for (const ControlUnitDescription& unit : description_->controlUnits)
        units_.push_back(std::make_unique<SimulatedControlUnit>(unit));
}

SimulatedControlUnit* SimulatedVehicle::find(const std::string& name) const {
    for (const auto& unit : units_)
        if (unit->name() == name)
            return unit.get();
    return nullptr;
}

Listeners SimulatedVehicle::group(const std::string& name) const {
    Listeners listeners;
    for (std::size_t index = 0; index < units_.size(); ++index)
        if (contains(description_->controlUnits[index].groups, name))
            listeners.push_back(units_[index].get());
    return listeners;
}

Listeners SimulatedVehicle::companions(const std::string& controlUnit) const {
    Listeners listeners;
    const auto& all = description_->controlUnits;
    const auto self = std::find_if(all.begin(), all.end(), [&](const auto& unit) { return unit.name == controlUnit; });
    for (std::size_t index = 0; self != all.end() && index < units_.size(); ++index)
        if (shareOne(self->groups, all[index].groups))
            listeners.push_back(units_[index].get());
    return listeners;
}

bool SimulatedVehicle::hasGroup(const std::string& name) const {
    return std::any_of(description_->groups.begin(), description_->groups.end(),
                       [&](const FunctionalGroupDescription& group) { return group.name == name; });
}

}  // namespace velkotx::host
