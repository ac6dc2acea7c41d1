// The output of the process.
#pragma once

#include <string>

namespace Hvt {

// For a line without its line end. Throws what LineQueue::push throws.
void writeToOutput(std::string line, bool isFailure);

}  // namespace Hvt
