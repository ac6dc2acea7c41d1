// Writes the document in the compiled form.
#include <Trace.h>
#include <VelkOTXe/Sequencer_impl.h>
#include <schema/CompiledForm.h>

#include <stdexcept>
#include <string>

namespace otxns {

void Sequencer_impl::Save(std::ostream& out) {
    OTX_TRACE(4, "");
    try {
        const std::size_t size = writeCompiled(*otx, out);
        OTX_TRACE(4, std::to_string(size));
    } catch (std::exception& failure) {
        OTX_TRACE(0, failure.what());
        throw std::runtime_error(std::string("VelkOTX CDR Saving Exception: ") + failure.what());
    }
}

}  // namespace otxns
