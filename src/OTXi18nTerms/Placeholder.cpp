// Replaces placeholders. No std::regex: it uses up the stack on long texts, and the rules are few.
#include <OTXi18nTerms/Placeholder.h>

#include <array>
#include <charconv>

namespace i18n {

namespace {

// One place that is replaced, with what is around it.
struct Place {
    std::string_view before;
    std::string_view itself;
    std::string_view after;
};

bool isDigit(char character) { return character >= '0' && character <= '9'; }

// Takes one or two digits off the text. There are no groups, so that only the number 0 stands for something.
void addGroup(std::string& result, std::string_view& digits, const Place& place) {
    const std::size_t count = digits.size() > 1 && isDigit(digits[1]) ? 2 : 1;
    if (digits.substr(0, count).find_first_not_of('0') == std::string_view::npos) result += place.itself;
    digits.remove_prefix(count);
}

void addReplacement(std::string& result, std::string_view replacement, const Place& place) {
    while (true) {
        const std::size_t dollar = replacement.find('$');
        result += replacement.substr(0, dollar);
        if (dollar == std::string_view::npos) return;
        replacement.remove_prefix(dollar + 1);
        const char sign = replacement.empty() ? '\0' : replacement.front();
        if (isDigit(sign)) {
            addGroup(result, replacement, place);
            continue;
        }
        std::string_view meant = "$";
        bool isKnown = true;
        switch (sign) {
            case '$': break;
            case '&': meant = place.itself; break;
            case '`': meant = place.before; break;
            case '\'': meant = place.after; break;
            default: isKnown = false;
        }
        result += meant;
        // Behind a "$" that means nothing the text goes on as it is.
        if (isKnown) replacement.remove_prefix(1);
    }
}

std::string placeholder(std::size_t index) {
    std::array<char, 24> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), index);
    return '{' + std::string(digits.data(), written.ptr) + '}';
}

}  // namespace

std::string replacePlaceholder(std::string_view text, std::size_t index, std::string_view replacement) {
    const std::string searched = placeholder(index);
    std::string result;
    while (true) {
        const std::size_t found = text.find(searched);
        if (found == std::string_view::npos) break;
        const Place place{text.substr(0, found), text.substr(found, searched.size()),
                          text.substr(found + searched.size())};
        result += place.before;
        addReplacement(result, replacement, place);
        text = place.after;
    }
    return result += text;
}

}  // namespace i18n
