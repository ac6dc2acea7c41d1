// Finds the line and column of an element, which the DOM doesn't keep, by reading the text once more.
#include <schema/Place.h>

#include <xsd/cxx/xml/sax/std-input-source.hxx>

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/framework/XMLPScanToken.hpp>
#include <xercesc/parsers/SAXParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLString.hpp>

#include <cxxabi.h>

namespace schema {

namespace {

const xercesc::DOMNode* nextInDocument(const xercesc::DOMNode* node) {
    if (const auto* const child = node->getFirstChild()) return child;
    while (node != nullptr && node->getNextSibling() == nullptr) node = node->getParentNode();
    return node == nullptr ? nullptr : node->getNextSibling();
}

// How many elements begin ahead of it.
std::size_t numberOf(const DomElement& element) {
    std::size_t number = 0;
    const xercesc::DOMNode* node = element.getOwnerDocument()->getDocumentElement();
    for (; node != nullptr && node != &element; node = nextInDocument(node))
        if (node->getNodeType() == xercesc::DOMNode::ELEMENT_NODE) ++number;
    return number;
}

// Counts the elements of a text and knows where its parser stands.
class ElementCounter : public xercesc::HandlerBase {
public:
    ElementCounter(std::size_t number, const XMLCh* name) : number_(number), name_(name) {}

    void setDocumentLocator(const xercesc::Locator* const locator) override { locator_ = locator; }

    void startElement(const XMLCh* const name, xercesc::AttributeList&) override {
        if (begun_++ == number_) isSame_ = xercesc::XMLString::equals(name, name_);
    }

    bool hasBegun() const { return begun_ > number_; }
    // Whether the element with the number has the name it had when the tree was read.
    bool isSame() const { return isSame_; }

    Place now() const {
        if (locator_ == nullptr) return {};
        return {static_cast<unsigned long>(locator_->getLineNumber()),
                static_cast<unsigned long>(locator_->getColumnNumber())};
    }

private:
    const std::size_t number_;
    const XMLCh* const name_;
    const xercesc::Locator* locator_ = nullptr;
    std::size_t begun_ = 0;
    bool isSame_ = false;
};

// The parser stands in front of a start tag when it has read what comes ahead of it.
Place find(ElementCounter& counter, std::istream& text) {
    // The text was free of entities when it was a document.
    xercesc::SecurityManager limits;
    limits.setEntityExpansionLimit(0);
    xercesc::SAXParser parser;
    parser.setValidationScheme(xercesc::SAXParser::Val_Never);
    parser.setDoNamespaces(true);
    parser.setLoadExternalDTD(false);
    parser.setDisableDefaultEntityResolution(true);
    parser.setSecurityManager(&limits);
    parser.setDocumentHandler(&counter);

    const xsd::cxx::xml::sax::std_input_source source(text);
    xercesc::XMLPScanToken token;
    Place ahead;
    bool isMore = parser.parseFirst(source, token);
    while (isMore && !counter.hasBegun()) {
        ahead = counter.now();
        isMore = parser.parseNext(token);
    }
    return counter.isSame() ? ahead : Place();
}

Place readUpTo(const DomElement& element, std::istream::pos_type begin, std::streambuf& bytes) {
    if (bytes.pubseekpos(begin, std::ios::in) != begin) return {};
    std::istream text(&bytes);
    ElementCounter counter(numberOf(element), element.getTagName());
    return find(counter, text);
}

}  // namespace

Place placeOf(const DomElement& element, std::istream& stream, std::istream::pos_type begin) {
    std::streambuf* const bytes = stream.rdbuf();
    if (bytes == nullptr || begin == std::istream::pos_type(-1)) return {};
    try {
        const auto end = bytes->pubseekoff(0, std::ios::cur, std::ios::in);
        const Place place = readUpTo(element, begin, *bytes);
        bytes->pubseekpos(end, std::ios::in);
        return place;
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return {};
    }
}

}  // namespace schema
