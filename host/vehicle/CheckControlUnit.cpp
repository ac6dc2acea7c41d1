// Checks what a control unit is told to have, but what nothing could ever meet.
#include "vehicle/ReadParts.h"

#include "vehicle/ServiceTable.h"

#include <utility>

namespace velkotx::host {

namespace {

void checkFunctionalServices(const JsonPlace& owner, const std::vector<ServiceDescription>& services) {
    if (!owner.is(JsonNode::Kind::Object))
        return;
    ObjectReader in(owner);
    const auto list = in.find("services");
    if (!list || !list->is(JsonNode::Kind::List))
        return;
    const auto places = list->items();
    for (std::size_t index = 0; index < services.size(); ++index)
        if (services[index].functional)
            places[index].mistake("functional, but the control unit is in no group");
}

}  // namespace

void checkAccess(ObjectReader& unit, const ControlUnitDescription& description) {
    const auto list = unit.find("access");
    if (!list || !list->is(JsonNode::Kind::List))
        return;
    const auto places = list->items();
    for (std::size_t index = 0; index < description.access.size(); ++index) {
        const ServiceAccess& access = description.access[index];
        const ServiceEntry* const service = findKnownService(access.service);
        if (service == nullptr || !access.subfunction)
            continue;
        if (service->hasSubfunction == nullptr)
            places[index].mistake("the service has no subfunctions");
        else if (!service->hasSubfunction(description, *access.subfunction))
            places[index].mistake("the service has no such subfunction");
    }
    expectUnique(*list, description.access,
                 [](const ServiceAccess& access) { return std::pair(access.service, access.subfunction); },
                 "service and subfunction");
}

void checkFunctional(ObjectReader& unit, const ControlUnitDescription& description) {
    const auto groups = unit.find("groups");
    if (!description.groups.empty() || (groups && !groups->is(JsonNode::Kind::List)))
        return;
    checkFunctionalServices(unit.place(), description.services);
    const auto variants = unit.find("variants");
    if (!variants || !variants->is(JsonNode::Kind::List))
        return;
    const auto places = variants->items();
    for (std::size_t index = 0; index < description.variants.size(); ++index)
        checkFunctionalServices(places[index], description.variants[index].services);
}

}  // namespace velkotx::host
