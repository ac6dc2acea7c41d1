// The difference of two texts, for people.
#include "Difference.h"

#include <algorithm>
#include <cstddef>

namespace documents {

namespace {

struct Edit {
    char mark;  // ' ' in both, '-' only expected, '+' only actual
    const std::string* line;
};

// By the longest common subsequence. Transcripts are short, so a table of all pairs will do.
std::vector<Edit> edits(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
    const std::size_t width = actual.size() + 1;
    std::vector<std::size_t> common((expected.size() + 1) * width, 0);
    for (std::size_t i = expected.size(); i-- > 0;)
        for (std::size_t j = actual.size(); j-- > 0;)
            common[i * width + j] = expected[i] == actual[j]
                                        ? common[(i + 1) * width + j + 1] + 1
                                        : std::max(common[(i + 1) * width + j], common[i * width + j + 1]);
    std::vector<Edit> result;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < expected.size() || j < actual.size()) {
        if (i < expected.size() && j < actual.size() && expected[i] == actual[j]) {
            result.push_back({' ', &expected[i]});
            ++i;
            ++j;
        } else if (j == actual.size() || (i < expected.size() && common[(i + 1) * width + j] >= common[i * width + j + 1])) {
            result.push_back({'-', &expected[i++]});
        } else {
            result.push_back({'+', &actual[j++]});
        }
    }
    return result;
}

}  // namespace

std::string difference(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
    constexpr std::size_t context = 3;
    const std::vector<Edit> all = edits(expected, actual);
    std::vector<bool> shown(all.size(), false);
    for (std::size_t at = 0; at < all.size(); ++at) {
        if (all[at].mark == ' ') continue;
        const std::size_t from = at < context ? 0 : at - context;
        for (std::size_t near = from; near < std::min(all.size(), at + context + 1); ++near) shown[near] = true;
    }
    std::string text;
    std::size_t expectedLine = 1;
    std::size_t actualLine = 1;
    for (std::size_t at = 0; at < all.size(); ++at) {
        if (shown[at]) {
            if (at == 0 || !shown[at - 1])
                text += "@@ -" + std::to_string(expectedLine) + " +" + std::to_string(actualLine) + " @@\n";
            text += all[at].mark + *all[at].line + '\n';
        }
        if (all[at].mark != '+') ++expectedLine;
        if (all[at].mark != '-') ++actualLine;
    }
    return text;
}

}  // namespace documents
