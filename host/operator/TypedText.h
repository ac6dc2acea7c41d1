// What an operator types, taken as words, numbers and values.
#pragma once

#include <otx/value/COtxValue.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace velkotx::host {

// The typed text isn't what is needed. what() says what is.
class TypingError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Without the blanks around it, in lower case as far as ASCII goes.
std::string lowerCaseWord(const std::string& text);
std::string withoutBlanksAround(const std::string& text);
// None for a text that is anything else than a number, or one too large.
std::optional<long long> wholeNumber(const std::string& text);

// A value of the type of the example: a text as it stands, or in the quotes of JSON, anything else as JSON. Where the example is
// empty, JSON if it can be read as such, else the text. Throws TypingError.
COtxValue valueLike(const COtxValue& example, const std::string& text);

}  // namespace velkotx::host
