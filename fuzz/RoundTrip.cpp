// Saves and loads a document again.
#include "RoundTrip.h"

#include "Abort.h"

#include <schema/CompiledForm.h>
#include <schema/core.h>

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

}  // namespace

void requireRoundTrip(const otxns::Otx& tree) try {
    const std::string first = saved(tree);
    const std::vector<char> file(first.begin(), first.end());
    if (saved(*otxns::readCompiled(file)) != first) fail("a loaded document: what was saved doesn't save as the same bytes");
} catch (const std::exception& failure) {
    fail(std::string("a loaded document: ") + failure.what());
}

}  // namespace fuzz
