// How matching fails.
#pragma once

#include <string>

#include "Refusal.h"

namespace otx {

// Throws kind 19.
[[noreturn]] inline void failMatch(const std::string& reason) {
    fail(OTX::Exceptions_e::StringUtilException, "Match: " + reason);
}

}  // namespace otx
