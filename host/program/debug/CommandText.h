// A line of the debugger, taken apart.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

namespace velkotx::host {

// A command can't be done as it stands. what() is one line for the user.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The first word of a text, and what follows behind the blanks.
struct CommandText {
    std::string word;  // empty for a line of blanks, and for a comment, which begins with #
    std::string rest;
};

CommandText takeWord(const std::string& text);

// A number from 0 on, none for an empty text. Throws CommandError for anything else; `what` names it there.
std::optional<long long> readNumber(const std::string& text, const char* what);

}  // namespace velkotx::host
