// Finds the position of an enumeration's literal.
#include <schema/Enumeration.h>

#include <algorithm>

namespace schema {

namespace {

int position(Enumeration::Literals literals, const std::string& text) {
    const auto found = std::find(literals.begin(), literals.end(), text);
    if (found == literals.end()) throw xsd::cxx::tree::unexpected_enumerator<char>(text);
    return static_cast<int>(found - literals.begin());
}

}  // namespace

Enumeration::Enumeration(Literals literals, const std::string& text, const DomElement* element, flags f,
                         container* owner)
    : string(text, element, f, owner), number_(position(literals, text)) {}

}  // namespace schema
