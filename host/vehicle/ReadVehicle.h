// Reads a vehicle file.
#pragma once

#include <vehicle/Mistake.h>
#include <vehicle/VehicleDescription.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velkotx::host {

// What came of a vehicle file. With mistakes in it the description isn't for use.
struct VehicleFile {
    VehicleDescription description;
    std::vector<Mistake> mistakes;  // in the order of the lines
};

// Reads the file and the data files that it names. A file that can't be read is a mistake as well. Any thread.
VehicleFile readVehicle(const std::filesystem::path& file);

// The same for a text; the data files are named from the folder.
VehicleFile readVehicleText(std::string_view text, const std::filesystem::path& folder);

// "compact.json:12: /controlUnits/0/name: expected a text".
std::string inWords(const Mistake& mistake, const std::string& fileName);

}  // namespace velkotx::host
