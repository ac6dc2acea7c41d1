// Writes the document in the compiled form.
#include <Trace.h>
#include <VelkOTXe/Sequencer_impl.h>
#include <schema/Records.h>
#include <schema/core.h>

#include <ace/CDR_Stream.h>
#include <ace/Message_Block.h>

#include <ostream>
#include <stdexcept>

namespace otxns {

namespace {

constexpr int littleEndian = 1;
constexpr std::size_t copyUpTo = 256;
constexpr ACE_CDR::Octet majorVersion = 1;
constexpr ACE_CDR::Octet minorVersion = 2;

}  // namespace

void Sequencer_impl::Save(std::ostream& out) {
    OTX_TRACE(4, "");
    try {
        ACE_OutputCDR output(std::size_t{0}, littleEndian, nullptr, nullptr, nullptr, copyUpTo, majorVersion,
                             minorVersion);
        schema::OutputStream stream(output);
        schema::insertFields(stream, *otx, Otx::table());
        for (const ACE_Message_Block* block = output.begin(); block != nullptr; block = block->cont()) {
            OTX_TRACE(4, std::to_string(block->length()));
            out.write(block->rd_ptr(), static_cast<std::streamsize>(block->length()));
        }
    } catch (std::exception& failure) {
        OTX_TRACE(0, failure.what());
        throw std::runtime_error(std::string("VelkOTX CDR Saving Exception: ") + failure.what());
    }
}

}  // namespace otxns
