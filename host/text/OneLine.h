// Makes a text of a document or of the engine fit for one line of a terminal.
#pragma once

#include <string>
#include <string_view>

namespace velkotx::host {

// The text without the white space at its end, and with every control character, line separator and unseen mark of order escaped ("\n",
// "\x1B"): a document's texts may hold anything, and neither a second line nor a terminal command may come of it.
std::string oneLine(std::string_view text);

}  // namespace velkotx::host
