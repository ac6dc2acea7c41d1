// Parses XML to a DOM under the limits that keep the process safe.
#include <schema/DomParser.h>

#include <schema/Limits.h>
#include <schema/Text.h>

#include <xsd/cxx/tree/error-handler.hxx>
#include <xsd/cxx/xml/dom/bits/error-handler-proxy.hxx>
#include <xsd/cxx/xml/sax/std-input-source.hxx>

#include <xercesc/dom/DOMConfiguration.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMImplementationLS.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/dom/DOMLSException.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/internal/XMLScanner.hpp>
#include <xercesc/parsers/DOMLSParserImpl.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <istream>
#include <new>

namespace schema {

RefusedInput::RefusedInput(Place place, std::string reason) : place_(place), reason_(std::move(reason)) {}

RefusedInput::~RefusedInput() throw() = default;

const char* RefusedInput::what() const throw() {
    return "input refused";
}

void RefusedInput::print(std::ostream& out) const {
    // Digits only, whatever the stream's locale would group.
    out << ':' << std::to_string(place_.line) << ':' << std::to_string(place_.column) << " error: " << reason_;
}

namespace {

// The parser of the load-and-save interface, with a count of what it reports before the DOM takes it in: both the DOM's
// cost and the parser's own grow with the square of nesting and of one element's attributes.
class BoundedParser : public xercesc::DOMLSParserImpl {
public:
    explicit BoundedParser(xercesc::MemoryManager& memory) : DOMLSParserImpl(nullptr, &memory) {}

    void startElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri, const XMLCh* const prefix,
                      const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes, const XMLSize_t attributeCount,
                      const bool isEmpty, const bool isRoot) override {
        if (attributeCount > maximumAttributes)
            refuse("more than " + std::to_string(maximumAttributes) + " attributes in one element");
        if (depth_ >= maximumDepth) refuse("elements nested more than " + std::to_string(maximumDepth) + " deep");
        if (!isEmpty) ++depth_;
        DOMLSParserImpl::startElement(declaration, uri, prefix, attributes, attributeCount, isEmpty, isRoot);
    }

    void endElement(const xercesc::XMLElementDecl& declaration, const unsigned int uri, const bool isRoot,
                    const XMLCh* const prefix) override {
        --depth_;
        DOMLSParserImpl::endElement(declaration, uri, isRoot, prefix);
    }

    void doctypeDecl(const xercesc::DTDElementDecl&, const XMLCh* const, const XMLCh* const, const bool,
                     const bool) override {
        refuse("a document type declaration is not allowed");
    }

    // An XML version that doesn't exist ends in the DOM instead of the diagnostics.
    void XMLDecl(const XMLCh* const version, const XMLCh* const encoding, const XMLCh* const standalone,
                 const XMLCh* const actualEncoding) override {
        try {
            DOMLSParserImpl::XMLDecl(version, encoding, standalone, actualEncoding);
        } catch (const xercesc::DOMException& failure) {
            refuse(narrow(failure.getMessage()));
        }
    }

private:
    [[noreturn]] void refuse(std::string reason) {
        const auto* const locator = getScanner()->getLocator();
        throw RefusedInput({static_cast<unsigned long>(locator->getLineNumber()),
                            static_cast<unsigned long>(locator->getColumnNumber())},
                           std::move(reason));
    }

    std::size_t depth_ = 0;
};

// The stream as the parser reads it, made in the document's memory.
class StreamSource : public xsd::cxx::xml::sax::std_input_source {
public:
    StreamSource(std::istream& stream, xercesc::MemoryManager& memory)
        : std_input_source(stream), stream_(stream), memory_(memory) {}

    xercesc::BinInputStream* makeStream() const override {
        return new (&memory_) xsd::cxx::xml::sax::std_input_stream(stream_);
    }

private:
    std::istream& stream_;
    xercesc::MemoryManager& memory_;
};

void configure(xercesc::DOMConfiguration& configuration) {
    using xercesc::XMLUni;
    configuration.setParameter(XMLUni::fgDOMComments, false);
    configuration.setParameter(XMLUni::fgDOMDatatypeNormalization, true);
    configuration.setParameter(XMLUni::fgDOMEntities, false);
    configuration.setParameter(XMLUni::fgDOMNamespaces, true);
    configuration.setParameter(XMLUni::fgDOMElementContentWhitespace, false);
    configuration.setParameter(XMLUni::fgDOMValidate, false);
    configuration.setParameter(XMLUni::fgXercesSchema, false);
    configuration.setParameter(XMLUni::fgXercesSchemaFullChecking, false);
    configuration.setParameter(XMLUni::fgXercesUserAdoptsDOMDocument, true);
    // Nothing outside of the stream is ever opened.
    configuration.setParameter(XMLUni::fgXercesLoadExternalDTD, false);
    configuration.setParameter(XMLUni::fgXercesDisableDefaultEntityResolution, true);
}

}  // namespace

Dom parseDom(std::istream& stream) try {
    Dom dom;
    dom.memory = std::make_unique<XmlMemory>();
    BoundedParser parser(*dom.memory);
    configure(*parser.getDomConfig());

    xsd::cxx::tree::error_handler<char> errors;
    xsd::cxx::xml::dom::bits::error_handler_proxy<char> proxy(errors);
    parser.getDomConfig()->setParameter(xercesc::XMLUni::fgDOMErrorHandler, &proxy);

    StreamSource source(stream, *dom.memory);
    const xercesc::Wrapper4InputSource wrapper(&source, false, dom.memory.get());
    try {
        dom.document.reset(parser.parse(&wrapper));
    } catch (const xercesc::DOMLSException&) {
        // The diagnostics tell it.
    }
    errors.throw_if_failed<xsd::cxx::tree::parsing<char>>();
    return dom;
} catch (const xercesc::OutOfMemoryException&) {
    throw std::bad_alloc();
}

}  // namespace schema
