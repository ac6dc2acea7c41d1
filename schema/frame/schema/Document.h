// Reads a whole OTX document from XML into the tree.
#pragma once

#include <schema/Runtime.h>

#include <iosfwd>
#include <memory>

namespace otxns {

class Otx;

// Parses the stream to its end and builds the tree. `f` takes dont_validate, which is always in force, and
// dont_initialize for a caller that holds the parser's initialisation itself. Throws the tree runtime's exceptions:
// parsing for XML that isn't well formed, unexpected_element for another root, and those of a wrong structure.
std::unique_ptr<Otx> otx(std::istream& stream, schema::flags f,
                         const xsd::cxx::tree::properties<char>& properties = {});

}  // namespace otxns
