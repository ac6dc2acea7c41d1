// The common part of the enumeration types: a literal and its position in the literal list.
#pragma once

#include <schema/Runtime.h>

#include <span>
#include <string_view>

namespace schema {

class Enumeration : public string {
public:
    using Literals = std::span<const std::string_view>;

    // The position in the literal list, which is also the number in the compiled form.
    int number() const { return number_; }

protected:
    // Throws unexpected_enumerator for a text that isn't in the list.
    Enumeration(Literals literals, const std::string& text, const DomElement* element, flags f, container* owner);
    Enumeration(const Enumeration& other, flags f, container* owner)
        : string(other, f, owner), number_(other.number_) {}

private:
    int number_;
};

}  // namespace schema
