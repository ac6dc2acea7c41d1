// Sweeps one file in processes of their own, so that a crash is a finding and not the end.
#pragma once

#include "Cases.h"

#include <cstddef>
#include <string>

namespace sweep {

struct Plan {
    // Of all cases each n-th is taken.
    std::size_t every = 1;
    std::size_t processes = 1;
};

struct Totals {
    std::size_t cases = 0;
    std::size_t loaded = 0;
    std::size_t refused = 0;
    std::size_t failed = 0;
    std::size_t largestAllocation = 0;
};

// Tells each failure in a line on stderr, with the file's name and the case; gives up the rest of a process's share
// after the tenth.
Totals sweepFile(const std::string& name, const Cases& cases, const Plan& plan);

}  // namespace sweep
