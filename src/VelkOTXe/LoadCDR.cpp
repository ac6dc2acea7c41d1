// Reads a document from the compiled form.
#include <Trace.h>
#include <VelkOTXe/Sequencer_impl.h>
#include <schema/CompiledForm.h>
#include <schema/DocumentOwner.h>
#include <schema/core.h>

#include <stdexcept>
#include <vector>

namespace otxns {

void Sequencer_impl::LoadCDR(std::istream& document) {
    OTX_TRACE(4, "");
    try {
        const std::vector<char> bytes = contentOf(document);
        const StackUse use;
        auto tree = readCompiled(bytes);
        otx = ownDocument(std::move(tree), use);
    } catch (std::exception& failure) {
        OTX_TRACE(0, failure.what());
        throw std::runtime_error(std::string("VelkOTX CDR Parsing Exception: ") + failure.what());
    }
}

}  // namespace otxns
