// The restriction of an input dialog.
#pragma once

#include <string>

namespace HMI {

// Throws kind 2, "Error creating regex for ", for a pattern that is no regular expression of the ECMAScript grammar, or one
// that the calling thread has no stack for.
void requireValidRestriction(const std::string& pattern);

}  // namespace HMI
