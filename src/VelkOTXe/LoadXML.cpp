// Reads a document from XML.
#include <Trace.h>
#include <VelkOTXe/Sequencer_impl.h>
#include <schema/Document.h>
#include <schema/DocumentOwner.h>
#include <schema/Suggestion.h>
#include <schema/core.h>
#include <velkotx/DocumentException.h>

#include <locale>
#include <sstream>

namespace otxns {

namespace {

// The tree runtime's printed form, which names the elements and places; what() has only the kind of the failure.
std::string printed(const schema::Exception& failure) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << failure;
    return out.str();
}

// What the author may have meant; empty for most failures.
std::string suggestionFor(const schema::Exception& failure) {
    const auto* const unknown = dynamic_cast<const xsd::cxx::tree::no_type_info<char>*>(&failure);
    return unknown == nullptr ? std::string() : schema::typeLike(unknown->type_name(), unknown->type_namespace());
}

}  // namespace

void Sequencer_impl::LoadXML(std::istream& document) {
    OTX_TRACE(4, "");
    schema::Place place;
    try {
        const xsd::cxx::tree::properties<char> properties;
        const StackUse use;
        auto tree = otxns::otx(document, schema::flags::dont_validate, properties, &place);
        otx = ownDocument(std::move(tree), use);
    } catch (schema::Exception& failure) {
        const std::string cause = printed(failure);
        OTX_TRACE(0, cause);
        throw velkotx::DocumentException("VelkOTX XML Parsing Exception: " + cause, place.line, place.column,
                                         suggestionFor(failure));
    }
}

}  // namespace otxns
