// Where in a document a loader's message points.
#include "program/Place.h"

#include <cstddef>

namespace velkotx::host {

namespace {

// The end of ":" and digits that stand at `at`; `at` itself when they don't.
std::size_t skipNumber(const std::string& text, std::size_t at) {
    if (at >= text.size() || text[at] != ':')
        return at;
    std::size_t end = at + 1;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9')
        ++end;
    return end > at + 1 ? end : at;
}

}  // namespace

PlacedMessage takePlace(const std::string& message) {
    const std::string mark = " error: ";
    for (std::size_t end = message.find(mark); end != std::string::npos; end = message.find(mark, end + 1)) {
        const std::size_t blank = end == 0 ? std::string::npos : message.rfind(' ', end - 1);
        const std::size_t begin = blank == std::string::npos ? 0 : blank + 1;
        const std::size_t line = skipNumber(message, begin);
        if (line > begin && skipNumber(message, line) == end && end > line)
            return {message.substr(begin, end - begin), message.substr(0, begin) + message.substr(end + mark.size())};
    }
    return {"", message};
}

}  // namespace velkotx::host
