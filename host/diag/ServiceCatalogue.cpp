// The services that a channel offers.
#include "diag/ServiceCatalogue.h"

#include "diag/DiagFailure.h"
#include "diag/KnownNames.h"

#include <algorithm>

namespace velkotx::host {

using OTX::Exceptions_e;

ServiceCatalogue::ServiceCatalogue(const Vehicle& vehicle, const ControlUnitDescription& unit,
                                   const VariantDescription* variant)
    : owner_("'" + unit.name + "' has no service") {
    // First come, first served: so the variant's replace those of the control unit.
    if (variant != nullptr)
        add(vehicle, variant->services, false);
    add(vehicle, unit.services, false);
}

ServiceCatalogue::ServiceCatalogue(const Vehicle& vehicle, const std::string& group)
    : owner_("the group '" + group + "' has no functional service") {
    for (const ControlUnitDescription& unit : vehicle->controlUnits) {
        if (std::find(unit.groups.begin(), unit.groups.end(), group) != unit.groups.end())
            add(vehicle, unit.services, true);
    }
}

void ServiceCatalogue::add(const Vehicle& vehicle, const std::vector<ServiceDescription>& services,
                           bool functionalOnly) {
    for (const ServiceDescription& service : services) {
        const auto sameName = [&](const Service& known) { return known->name == service.name; };
        if ((service.functional || !functionalOnly) && std::none_of(services_.begin(), services_.end(), sameName))
            services_.emplace_back(vehicle, &service);
    }
}

ServiceCatalogue::Service ServiceCatalogue::byName(const std::string& name) const {
    const auto found = std::find_if(services_.begin(), services_.end(),
                                    [&](const Service& service) { return service->name == name; });
    if (found == services_.end())
        fail(Exceptions_e::UnknownTargetException,
             owner_ + " '" + name + "'" + knownNames(services_, [](const Service& service) { return service->name; }));
    return *found;
}

ServiceCatalogue::Service ServiceCatalogue::bySemantic(const std::string& semantic) const {
    const auto found = allBySemantic(semantic);
    if (found.empty())
        fail(Exceptions_e::UnknownTargetException, owner_ + " of the semantic '" + semantic + "'");
    if (found.size() > 1)
        fail(Exceptions_e::AmbiguousSemanticException,
             "there are " + std::to_string(found.size()) + " services of the semantic '" + semantic + "'");
    return found.front();
}

std::vector<ServiceCatalogue::Service> ServiceCatalogue::allBySemantic(const std::string& semantic) const {
    std::vector<Service> found;
    std::copy_if(services_.begin(), services_.end(), std::back_inserter(found),
                 [&](const Service& service) { return service->semantic == semantic; });
    return found;
}

}  // namespace velkotx::host
