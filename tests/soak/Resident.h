// The memory that the process has in use.
#pragma once

#include <cstddef>

namespace soak {

// In bytes, as the system counts it.
std::size_t residentMemory();

}  // namespace soak
