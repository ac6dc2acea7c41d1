// The vehicle file that the user names.
#include "program/VehicleFile.h"

#include "program/Inputs.h"

namespace velkotx::host {

VehicleFile readVehicleFile(Inputs& inputs, const std::string& name) {
    if (name != "-")
        return readVehicle(name);
    return readVehicleText(inputs.read(name), ".");
}

}  // namespace velkotx::host
