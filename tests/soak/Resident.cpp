// The memory that the process has in use.
#include "Resident.h"

#include <unistd.h>

#include <charconv>
#include <fstream>
#include <stdexcept>
#include <string>

namespace soak {

std::size_t residentMemory() {
    std::ifstream file("/proc/self/statm");
    std::string whole;
    std::string resident;
    if (!(file >> whole >> resident)) throw std::runtime_error("can't read /proc/self/statm");
    std::size_t pages = 0;
    if (std::from_chars(resident.data(), resident.data() + resident.size(), pages).ec != std::errc())
        throw std::runtime_error("no number in /proc/self/statm");
    return pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace soak
