// What the program writes besides its standard output.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

namespace velkotx::host {

// Writes the whole content to the file of that name, or to `out` for "-". Throws std::runtime_error, the name and the
// system's reason, for a file that can't be written.
void writeOutput(const std::string& name, std::string_view content, std::ostream& out);

}  // namespace velkotx::host
