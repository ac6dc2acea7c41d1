// The program velkotx as a function, so that main is thin.
#pragma once

#include "program/Streams.h"

namespace velkotx::host {

// Answers the command line and gives the exit status. Throws nothing but what ends the thread.
int runProgram(int argc, const char* const* argv, const Streams& streams);

}  // namespace velkotx::host
