// The root of reading and writing the compiled form, over the CDR streams.
#include <schema/CompiledForm.h>

#include <schema/Arena.h>
#include <schema/CdrInput.h>
#include <schema/CdrMemory.h>
#include <schema/Name.h>
#include <schema/Records.h>
#include <schema/core.h>

#include <xsd/cxx/tree/ace-cdr-stream-extraction.hxx>
#include <xsd/cxx/tree/ace-cdr-stream-insertion.hxx>

#include <ace/CDR_Stream.h>
#include <ace/Message_Block.h>

#include <istream>
#include <iterator>
#include <ostream>

namespace otxns {

namespace {

constexpr int littleEndian = 1;
constexpr std::size_t defaultSize = 0;
constexpr std::size_t copyUpTo = 256;
constexpr ACE_CDR::Octet majorVersion = 1;
constexpr ACE_CDR::Octet minorVersion = 2;

}  // namespace

std::vector<char> contentOf(std::istream& file) {
    std::vector<char> bytes;
    constexpr std::size_t initialSize = 4096;
    bytes.reserve(initialSize);
    bytes.assign(std::istreambuf_iterator<char>(file.rdbuf()), {});
    return bytes;
}

std::unique_ptr<Otx> readCompiled(std::span<const char> bytes, schema::FieldListener* listener) {
    schema::CdrInput input(bytes);
    schema::InputStream stream(input, listener);
    const schema::Arena::Use arena;
    const Name::Memory names;
    const schema::FieldListener::Object shown(listener, typeid(Otx));
    return std::make_unique<Otx>(stream, schema::flags(0), nullptr);
}

std::size_t writeCompiled(const Otx& document, std::ostream& out) {
    schema::CdrMemory memory;
    ACE_OutputCDR output(defaultSize, littleEndian, &memory, &memory, &memory, copyUpTo, majorVersion, minorVersion);
    schema::OutputStream stream(output);
    schema::insertFields(stream, document, Otx::table());
    stream.flush();
    std::size_t size = 0;
    for (const ACE_Message_Block* block = output.begin(); block != nullptr; block = block->cont()) {
        out.write(block->rd_ptr(), static_cast<std::streamsize>(block->length()));
        size += block->length();
    }
    if (!out.flush()) throw xsd::cxx::tree::ace_cdr_stream_insertion();
    return size;
}

}  // namespace otxns
