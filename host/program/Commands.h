// The commands of velkotx. Each gives the program's exit status.
#pragma once

#include "program/Options.h"
#include "program/Streams.h"

namespace velkotx::host {

// Runs a procedure and prints its outcome. Throws UsageError.
int run(const RunOptions& options, const Streams& streams);

// Runs procedures step by step, as the user says. Throws UsageError.
int debug(const DebugOptions& options, const Streams& streams);

// Describes a document. Throws UsageError.
int info(const InfoOptions& options, const Streams& streams);

// Writes a document in the compiled form. Throws UsageError.
int compile(const CompileOptions& options, const Streams& streams);

// Prints a compiled document field by field. Throws UsageError.
int dump(const DumpOptions& options, const Streams& streams);

// Tells every mistake of a vehicle file, a line each, to standard error. Throws UsageError.
int checkVehicle(const VehicleCheckOptions& options, const Streams& streams);

}  // namespace velkotx::host
