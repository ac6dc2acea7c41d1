// Writes a time by a pattern of ISO 13209's letters.
#pragma once

#include <ctime>
#include <string>
#include <string_view>

namespace DateTime {

// What a pattern is filled with.
struct Moment {
    std::tm fields{};
    int milliseconds = 0;
    // A duration shows no years, months and days: their tokens stay as they are.
    bool isDuration = false;
};

// The pattern is cut into tokens: a run of one letter, any other character, the text of a pair of quotes. A token of the
// table gives way to a number or a conversion of strftime, any other stays; the whole then goes through std::put_time
// under the global locale. The pattern holds no NUL. These corners are meant:
// - quoting doesn't protect: a quoted token of the table gives way too;
// - a quoted text that ends the pattern is lost;
// - two quotes are one;
// - "h" is always 0;
// - "%" and what follows it is a conversion of strftime.
std::string formatMoment(std::string_view pattern, const Moment& moment);

}  // namespace DateTime
