// What an operator types, taken as words and numbers.
#pragma once

#include <optional>
#include <string>

namespace velkotx::host {

// Without the blanks around it, in lower case as far as ASCII goes.
std::string lowerCaseWord(const std::string& text);
std::string withoutBlanksAround(const std::string& text);
// None for a text that is anything else than a number, or one too large.
std::optional<long long> wholeNumber(const std::string& text);

}  // namespace velkotx::host
