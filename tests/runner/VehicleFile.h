// The simulated vehicle that an expectation file names.
#pragma once

#include <vehicle/VehicleDescription.h>

#include <filesystem>
#include <memory>

namespace documents {

// Throws std::runtime_error with the first mistake of the file.
std::shared_ptr<const velkotx::host::VehicleDescription> vehicleIn(const std::filesystem::path& file);

}  // namespace documents
