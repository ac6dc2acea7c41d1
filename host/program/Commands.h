// The commands of velkotx. Each gives the program's exit status.
#pragma once

#include "program/Options.h"
#include "program/Streams.h"

namespace velkotx::host {

// Runs a procedure and prints its outcome. Throws UsageError.
int run(const RunOptions& options, const Streams& streams);

// Describes a document. Throws UsageError.
int info(const InfoOptions& options, const Streams& streams);

}  // namespace velkotx::host
