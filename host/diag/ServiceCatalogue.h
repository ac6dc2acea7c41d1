// The services that a channel offers.
#pragma once

#include <vehicle/VehicleDescription.h>

#include <memory>
#include <string>
#include <vector>

namespace velkotx::host {

// Immutable. The services keep the whole description alive.
class ServiceCatalogue {
public:
    using Service = std::shared_ptr<const ServiceDescription>;
    using Vehicle = std::shared_ptr<const VehicleDescription>;

    // Of a control unit in one of its variants; null for none.
    ServiceCatalogue(const Vehicle& vehicle, const ControlUnitDescription& unit, const VariantDescription* variant);
    // Of a functional group: the functional services of its control units; of several of one name the first.
    ServiceCatalogue(const Vehicle& vehicle, const std::string& group);

    // Throws kind 8.
    Service byName(const std::string& name) const;
    // Throws kind 8 when there is none and kind 9 when there are several.
    Service bySemantic(const std::string& semantic) const;
    std::vector<Service> allBySemantic(const std::string& semantic) const;

private:
    void add(const Vehicle& vehicle, const std::vector<ServiceDescription>& services, bool functionalOnly);

    // The beginning of what is told when something isn't there.
    const std::string owner_;
    std::vector<Service> services_;
};

}  // namespace velkotx::host
