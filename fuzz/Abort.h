// How a target says that a demand isn't met.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzz {

// Ends the process, which the fuzzer takes for a finding.
[[noreturn]] inline void fail(const std::string& reason) {
    std::fprintf(stderr, "%s\n", reason.c_str());
    std::abort();
}

}  // namespace fuzz
