// The root of reading a document.
#include <schema/Document.h>

#include <schema/Arena.h>
#include <schema/DomParser.h>
#include <schema/FailedElement.h>
#include <schema/Name.h>
#include <schema/Holders.h>
#include <schema/Reader.h>
#include <schema/Text.h>
#include <schema/XmlPlatform.h>
#include <schema/core.h>

#include <xercesc/dom/DOMElement.hpp>

#include <optional>
#include <ostream>
#include <string>

namespace otxns {

namespace {

constexpr schema::TypeName rootType{"Otx", "http://iso.org/OTX/1.0.0"};
constexpr const char* rootElement = "otx";

// In words that name the failure; those of the runtime begin with what was expected.
class UnexpectedRoot : public xsd::cxx::tree::unexpected_element<char> {
public:
    UnexpectedRoot(const std::string& name, const std::string& space)
        : unexpected_element(name, space, rootElement, rootType.space) {}

protected:
    void print(std::ostream& out) const override {
        out << "unexpected element '" << qualified(encountered_namespace(), encountered_name()) << "', expected element '"
            << qualified(expected_namespace(), expected_name()) << "'";
    }

private:
    static std::string qualified(const std::string& space, const std::string& name) {
        return space.empty() ? name : space + '#' + name;
    }
};

std::unique_ptr<Otx> build(const xercesc::DOMElement& root, schema::flags f) {
    const std::string name = schema::narrow(root.getLocalName());
    const std::string space = schema::narrow(root.getNamespaceURI());
    if (name != rootElement || space != rootType.space)
        throw UnexpectedRoot(name, space);
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

// Parses the text; its own failures know their place.
schema::Dom parse(std::istream& stream, schema::Place* failure) {
    try {
        return schema::parseDom(stream);
    } catch (const schema::RefusedInput& refused) {
        if (failure != nullptr) *failure = refused.place();
        throw;
    } catch (const xsd::cxx::tree::parsing<char>& unparsed) {
        if (failure != nullptr && !unparsed.diagnostics().empty()) {
            const auto& first = unparsed.diagnostics().front();
            *failure = {first.line(), first.column()};
        }
        throw;
    }
}

}  // namespace

std::unique_ptr<Otx> otx(std::istream& stream, schema::flags f, const xsd::cxx::tree::properties<char>&,
                         schema::Place* failure) {
    std::optional<schema::XmlPlatform> platform;
    if ((f & schema::flags::dont_initialize) == 0) platform.emplace();
    const auto begin = failure == nullptr || !stream.good() ? std::istream::pos_type(-1) : stream.tellg();
    const schema::Dom dom = parse(stream, failure);
    if (dom.document == nullptr || dom.document->getDocumentElement() == nullptr) throw xsd::cxx::tree::parsing<char>();
    const auto& root = *dom.document->getDocumentElement();
    const schema::FailedElement failed;
    try {
        return build(root, f);
    } catch (const schema::Exception&) {
        if (failure != nullptr)
            *failure = schema::placeOf(failed.element() == nullptr ? root : *failed.element(), stream, begin);
        throw;
    }
}

}  // namespace otxns
