// The simulated vehicle that an expectation file names.
#include "VehicleFile.h"

#include <vehicle/ReadVehicle.h>

#include <stdexcept>
#include <utility>

namespace documents {

std::shared_ptr<const velkotx::host::VehicleDescription> vehicleIn(const std::filesystem::path& file) {
    velkotx::host::VehicleFile read = velkotx::host::readVehicle(file);
    if (!read.mistakes.empty())
        throw std::runtime_error(velkotx::host::inWords(read.mistakes.front(), file.filename().string()));
    return std::make_shared<const velkotx::host::VehicleDescription>(std::move(read.description));
}

}  // namespace documents
