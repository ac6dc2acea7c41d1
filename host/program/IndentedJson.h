// JSON for people.
#pragma once

#include <string>

namespace velkotx::host {

// The same JSON text with each member of an object or array that isn't empty on a line of its own. The text is well
// formed and has no white space outside of strings.
std::string indentedJson(const std::string& json);

}  // namespace velkotx::host
