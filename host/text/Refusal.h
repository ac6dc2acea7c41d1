// Why the run refused what the host asked of it, in words.
#pragma once

#include <exception>
#include <string>

namespace velkotx::host {

// The exception's what(), with its second text behind a colon where it has one.
std::string refusalOf(const std::exception& error);

}  // namespace velkotx::host
