// What an operator types, taken as a value.
#pragma once

#include <otx/value/COtxValue.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace velkotx::host {

// The typed text isn't what is needed. what() says what is, and in which form.
class TypingError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A value of the type of the examples, in any of these forms: as lineOf shows it, but for lists and maps; JSON, plain or OTX; a
// text as it stands, or in the quotes of JSON. Booleans and the names of types of the standard may be written in any case. A number
// without a unit is a Quantity in the first example's; one with a unit has to be of that one's dimension, if that has a unit at
// all. An element of a document's enumeration is known by its name only if it is among the examples.
//
// Without examples: TRUE or FALSE in any case, else JSON if it can be read as such, else the text.
//
// Throws TypingError.
COtxValue valueLike(const std::vector<COtxValue>& examples, const std::string& text);

}  // namespace velkotx::host
