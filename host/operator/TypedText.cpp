// What an operator types, taken as words and numbers.
#include "operator/TypedText.h"

#include <charconv>
#include <system_error>

namespace velkotx::host {

std::string withoutBlanksAround(const std::string& text) {
    constexpr const char* blanks = " \t\r";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::string lowerCaseWord(const std::string& text) {
    std::string word = withoutBlanksAround(text);
    for (char& letter : word)
        if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return word;
}

std::optional<long long> wholeNumber(const std::string& text) {
    long long number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end)
        return {};
    return number;
}

}  // namespace velkotx::host
