// Saves and loads a document again.
#include "RoundTrip.h"

#include <schema/CompiledForm.h>
#include <schema/core.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <sstream>
#include <string>
#include <vector>

namespace fuzz {

namespace {

std::string saved(const otxns::Otx& tree) {
    std::ostringstream out;
    otxns::writeCompiled(tree, out);
    return std::move(out).str();
}

[[noreturn]] void fail(const char* reason) {
    std::fprintf(stderr, "a loaded document: %s\n", reason);
    std::abort();
}

}  // namespace

void requireRoundTrip(const otxns::Otx& tree) try {
    const std::string first = saved(tree);
    const std::vector<char> file(first.begin(), first.end());
    if (saved(*otxns::readCompiled(file)) != first) fail("what was saved doesn't save as the same bytes");
} catch (const std::exception& failure) {
    fail(failure.what());
}

}  // namespace fuzz
