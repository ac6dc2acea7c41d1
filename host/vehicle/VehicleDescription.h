// A vehicle as a file describes it: control units, flash data, interfaces. Plain data, immutable once read.
#pragma once

#include <vehicle/ComInterfaceDescription.h>
#include <vehicle/ControlUnitDescription.h>
#include <vehicle/FlashDescription.h>

#include <cstdint>
#include <string>
#include <vector>

namespace velkotx::host {

// A transport opens it by its name like a control unit; what is sent there goes to all that listen to it.
struct FunctionalGroupDescription {
    std::string name;
    std::uint32_t address = 0;
};

struct VehicleDescription {
    std::string name;
    std::vector<FunctionalGroupDescription> groups;
    std::vector<ControlUnitDescription> controlUnits;
    std::vector<FlashSessionDescription> flashSessions;
    std::vector<ComInterfaceDescription> comInterfaces;
    std::string defaultComInterface;  // may be empty
    std::vector<ComParameterDescription> comParameters;  // of channels to groups; control units have copies
};

}  // namespace velkotx::host
