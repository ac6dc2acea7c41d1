// Any bytes as the compiled form: a document or the tree runtime's exception.
#include "RoundTrip.h"

#include <schema/CompiledForm.h>
#include <schema/core.h>

#include <xsd/cxx/exceptions.hxx>

#include <cstddef>
#include <cstdint>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // A copy of its own size, which begins where a compiled file has to.
    const std::vector<char> file(data, data + size);
    std::unique_ptr<otxns::Otx> tree;
    try {
        tree = otxns::readCompiled(file);
    } catch (const xsd::cxx::exception&) {
        return 0;
    }
    fuzz::requireRoundTrip(*tree);
    return 0;
}
