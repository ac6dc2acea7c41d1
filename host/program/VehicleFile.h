// The vehicle file that the user names.
#pragma once

#include <vehicle/ReadVehicle.h>

#include <string>

namespace velkotx::host {

class Inputs;

// Reads it, "-" being standard input, whose data files are named from the working folder. Throws as Inputs::read does, for "-".
VehicleFile readVehicleFile(Inputs& inputs, const std::string& name);

}  // namespace velkotx::host
