// Values from JSON text, and the state of a conversion to it.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>

namespace OTX {

// Reads one JSON text (RFC 8259, UTF-8) in its plain or OTX form: an object becomes a Map with String keys, an array a
// List, null the empty value; a number with a point or an exponent a Float, any other an Integer; an object with one key
// that is a type's name of the OTX form becomes that type. Of equal keys the last one counts. Throws kind 5, with line and
// column, for text that is no JSON, integers beyond 64 bits, floats beyond double, an OTX form that doesn't fit its type,
// and nesting deeper than 10,000.
OTX_API COtxValue FromJSON(const std::string& text);

}  // namespace OTX

// What the values on the way of one conversion to JSON share. Lives on the stack of the conversion, used by its thread.
class OTX_API Value2IdMap {
public:
    explicit Value2IdMap(bool otxForm) : otxForm_(otxForm) {}

    // Whether the value is to be written in the OTX form, because its own flag or that of an enclosing value says so.
    bool OtxForm() const noexcept { return otxForm_; }

private:
    const bool otxForm_;
};
