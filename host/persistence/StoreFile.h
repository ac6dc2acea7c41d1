// The file of persisted values: what makes a database one of ours, and its making.
#pragma once

#include "persistence/Database.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velkotx::host {

// Opens the file, which is made if it isn't there or is empty, and checks it whole: every page, and every value against its
// checksum. A file that isn't ours, or is of a newer version, is left as it is. Throws DatabaseFailure.
Database openStoreFile(const std::string& file);

// The checksum that stands beside a value.
std::uint32_t checksum(std::string_view name, std::string_view json);

}  // namespace velkotx::host
