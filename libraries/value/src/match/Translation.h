// A regular expression of the ECMAScript grammar, told in the grammar of the matcher.
#pragma once

#include <string>
#include <string_view>

namespace otx {

// The grammar is that of ECMAScript 5 by code points, with the POSIX classes of std::regex ("[[:digit:]]"). Everything
// that the matcher knows beyond it, such as recursion, comments or commands to the matcher, is refused or stands for its
// own letters, so nothing of it reaches the matcher.
struct Translation {
    std::string pattern;
    bool hasLookahead = false;
    bool hasBackReference = false;
};

// The number of the call-outs at the beginning and at the end of each lookahead. A call-out with a smaller number stands
// before a back-reference to the group of that number; the last of them is for all groups from there on.
constexpr unsigned lookaheadCallout = 255;
constexpr unsigned lastGroupCallout = 254;

// Groups within each other; what a compiler may recurse over.
constexpr std::size_t deepestNesting = 250;

// The pattern matches up to the end of the text. Throws kind 19. The expression is valid UTF-8. Doesn't recurse.
Translation translateExpression(std::string_view expression);

}  // namespace otx
