// Putting an argument in the place of "{0}", "{1}" and so on.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace i18n {

// Every place of "{index}" in the text replaced as an ECMAScript regular expression for it does it: in the replacement "$$"
// stands for "$", "$&" and "$0" for the place itself, "$`" for the text between the place before and this one, "$'" for all
// that follows, a "$" before another number of one or two digits for nothing. What was put in isn't searched again.
std::string replacePlaceholder(std::string_view text, std::size_t index, std::string_view replacement);

}  // namespace i18n
