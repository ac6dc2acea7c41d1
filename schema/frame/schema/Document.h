// Reads a whole OTX document from XML into the tree.
#pragma once

#include <schema/Place.h>
#include <schema/Runtime.h>

#include <iosfwd>
#include <memory>

namespace otxns {

class Otx;

// Parses the stream to its end and builds the tree. `f` takes dont_validate, which is always in force, and
// dont_initialize for a caller that holds the parser's initialisation itself. Throws the tree runtime's exceptions:
// parsing for XML that isn't well formed, unexpected_element for another root, and those of a wrong structure. With
// `failure` such an exception leaves there where in the text the failure lies; reading again for it is all that it costs.
std::unique_ptr<Otx> otx(std::istream& stream, schema::flags f, const xsd::cxx::tree::properties<char>& properties = {},
                         schema::Place* failure = nullptr);

}  // namespace otxns
