// The XML parser as documents are read with it: to a DOM, without validation, safe against hostile input.
#pragma once

#include <schema/Place.h>
#include <schema/Runtime.h>
#include <schema/XmlMemory.h>

#include <xsd/cxx/xml/dom/auto-ptr.hxx>

#include <iosfwd>
#include <memory>
#include <string>

namespace schema {

// Input that no OTX document needs and that could harm the process: a document type declaration (with it go entities and
// external files), nesting or attributes without bound.
class RefusedInput : public Exception {
public:
    RefusedInput(Place place, std::string reason);
    ~RefusedInput() throw() override;
    const char* what() const throw() override;
    Place place() const { return place_; }

protected:
    void print(std::ostream& out) const override;

private:
    Place place_;
    std::string reason_;
};

// A parsed document and what it lies in, which goes after it.
struct Dom {
    std::unique_ptr<XmlMemory> memory;
    XSD_DOM_AUTO_PTR<xercesc::DOMDocument> document;
};

// Parses the stream to its end. Throws the tree's `parsing` with the parser's diagnostics for a document that isn't well
// formed, RefusedInput for the above.
Dom parseDom(std::istream& stream);

}  // namespace schema
