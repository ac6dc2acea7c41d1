// The commands and options of velkotx as one table: what the command line is parsed by, and what its manual page and its
// completions are made from.
#pragma once

#include "program/Options.h"

namespace CLI {
class App;
}

namespace velkotx::host {

// Where the parser puts what it reads: one member a command.
struct CommandOptions {
    RunOptions run;
    DebugOptions debug;
    InfoOptions info;
    CompileOptions compile;
    DumpOptions dump;
    VehicleCheckOptions vehicleCheck;
};

// Makes an empty parser that of velkotx. `options` has to outlive it.
void addCommands(CLI::App& program, CommandOptions& options);

}  // namespace velkotx::host
