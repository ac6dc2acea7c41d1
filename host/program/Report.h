// Prints how a command ended.
#pragma once

#include "program/Outcome.h"
#include "program/Streams.h"

#include <string>

namespace velkotx::host {

// Prints the outcome for the document of that name: as JSON, or the out parameters as "name = value" lines, to standard
// output; a failure, in both forms, as one line to standard error. Gives the exit status.
int report(const Outcome& outcome, const std::string& document, bool json, const Streams& streams);

}  // namespace velkotx::host
