// The services that a simulated control unit can have, and what their frame has to know of each.
#pragma once

#include <vehicle/Exchange.h>

#include <cstddef>
#include <cstdint>

namespace velkotx::host {

struct ServiceEntry {
    std::uint8_t id;
    ServiceHandler handler;
    std::size_t minimumLength;      // bytes of the whole request
    bool inDefaultSession;          // ISO 14229-1, table 23
    bool (*offered)(const ControlUnitDescription&);
    // Whether it has the subfunction; nullptr for a service without subfunctions.
    bool (*hasSubfunction)(const ControlUnitDescription&, std::uint8_t subfunction);
};

// The service with that identifier, whether or not a control unit has it, or nullptr.
const ServiceEntry* findKnownService(std::uint8_t id);
// The service of the control unit with that identifier, or nullptr.
const ServiceEntry* findService(const ControlUnitDescription& unit, std::uint8_t id);

}  // namespace velkotx::host
