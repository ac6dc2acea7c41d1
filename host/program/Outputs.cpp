// Writes files.
#include "program/Outputs.h"

#include <cerrno>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace velkotx::host {

void writeOutput(const std::string& name, std::string_view content, std::ostream& out) {
    const auto size = static_cast<std::streamsize>(content.size());
    if (name == "-") {
        out.write(content.data(), size);
        return;
    }
    errno = 0;
    std::ofstream file(name, std::ios::binary);
    if (!file.write(content.data(), size) || !file.flush())
        throw std::runtime_error(name + ": " + std::generic_category().message(errno != 0 ? errno : EIO));
}

}  // namespace velkotx::host
