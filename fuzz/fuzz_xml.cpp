// Any bytes as XML: a document, or the tree runtime's exception and the place of its cause.
#include "RoundTrip.h"

#include <schema/Document.h>
#include <schema/XmlPlatform.h>
#include <schema/core.h>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const schema::XmlPlatform platform;
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
    std::unique_ptr<otxns::Otx> tree;
    schema::Place failure;
    try {
        tree = otxns::otx(stream, schema::flags::dont_validate, {}, &failure);
    } catch (const schema::Exception&) {
        return 0;
    }
    fuzz::requireRoundTrip(*tree);
    return 0;
}
