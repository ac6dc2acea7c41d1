// JSON for people.
#include "program/IndentedJson.h"

#include <cstddef>

namespace velkotx::host {

namespace {

// The end of the string that begins at `at`.
std::size_t stringEnd(const std::string& json, std::size_t at) {
    for (++at; at < json.size() && json[at] != '"'; ++at)
        if (json[at] == '\\')
            ++at;
    return at < json.size() ? at + 1 : json.size();
}

bool closesAt(const std::string& json, std::size_t at) {
    return at < json.size() && (json[at] == '}' || json[at] == ']');
}

}  // namespace

std::string indentedJson(const std::string& json) {
    std::string text;
    std::size_t depth = 0;
    const auto newLine = [&] { text += '\n' + std::string(2 * depth, ' '); };
    std::size_t at = 0;
    while (at < json.size()) {
        const char letter = json[at];
        if (letter == '"') {
            const std::size_t end = stringEnd(json, at);
            text.append(json, at, end - at);
            at = end;
            continue;
        }
        ++at;
        if ((letter == '{' || letter == '[') && closesAt(json, at)) {
            text += letter;
            text += json[at++];
        } else if (letter == '{' || letter == '[') {
            text += letter;
            ++depth;
            newLine();
        } else if (letter == '}' || letter == ']') {
            --depth;
            newLine();
            text += letter;
        } else {
            text += letter;
            if (letter == ',')
                newLine();
            else if (letter == ':')
                text += ' ';
        }
    }
    return text;
}

}  // namespace velkotx::host
