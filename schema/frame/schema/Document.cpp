// The root of reading a document.
#include <schema/Document.h>

#include <schema/Arena.h>
#include <schema/DomParser.h>
#include <schema/Name.h>
#include <schema/Holders.h>
#include <schema/Reader.h>
#include <schema/Text.h>
#include <schema/XmlPlatform.h>
#include <schema/core.h>

#include <xercesc/dom/DOMElement.hpp>

#include <optional>

namespace otxns {

namespace {

constexpr schema::TypeName rootType{"Otx", "http://iso.org/OTX/1.0.0"};
constexpr const char* rootElement = "otx";

std::unique_ptr<Otx> build(const xercesc::DOMElement& root, schema::flags f) {
    const std::string name = schema::narrow(root.getLocalName());
    const std::string space = schema::narrow(root.getNamespaceURI());
    if (name != rootElement || space != rootType.space)
        throw xsd::cxx::tree::unexpected_element<char>(name, space, rootElement, rootType.space);
    const schema::Arena::Use arena;
    const Name::Memory names;
    schema::Reader reader;
    std::unique_ptr<schema::type> made = reader.create(root, schema::make<Otx>, rootType, f, nullptr);
    if (Otx* const document = dynamic_cast<Otx*>(made.get())) {
        made.release();
        return std::unique_ptr<Otx>(document);
    }
    const auto found = reader.typeName(root, rootType);
    throw xsd::cxx::tree::not_derived<char>(rootType.name, rootType.space, found.first, found.second);
}

}  // namespace

std::unique_ptr<Otx> otx(std::istream& stream, schema::flags f, const xsd::cxx::tree::properties<char>&) {
    std::optional<schema::XmlPlatform> platform;
    if ((f & schema::flags::dont_initialize) == 0) platform.emplace();
    const schema::Dom dom = schema::parseDom(stream);
    if (dom.document == nullptr || dom.document->getDocumentElement() == nullptr) throw xsd::cxx::tree::parsing<char>();
    return build(*dom.document->getDocumentElement(), f);
}

}  // namespace otxns
