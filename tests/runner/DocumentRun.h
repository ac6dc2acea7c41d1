// Runs one document as its expectation file says.
#pragma once

#include "ExpectFile.h"
#include "Mode.h"

#include <string>
#include <vector>

namespace documents {

// Gives the transcript. Throws std::runtime_error for what no transcript shows: a compiled form that isn't stable, a step
// that was refused, a vehicle file with mistakes.
std::vector<std::string> runDocument(const std::string& document, const Script& script, Mode mode);

}  // namespace documents
