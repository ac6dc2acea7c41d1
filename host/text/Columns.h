// How wide characters are on a terminal.
#pragma once

#include <cstddef>
#include <string_view>

namespace velkotx::host {

// The columns of the first character of a text in UTF-8: 2 for the wide ones of East Asia and most pictures, 0 for marks that
// stand on the character before and for what only directs the text, else 1. Asks no locale.
std::size_t columnsOf(std::string_view text);

}  // namespace velkotx::host
