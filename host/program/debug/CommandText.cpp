// A line of the debugger, taken apart.
#include "program/debug/CommandText.h"

#include "text/OneLine.h"

#include <charconv>
#include <string_view>
#include <system_error>

namespace velkotx::host {

namespace {

constexpr const char* blanks = " \t\r";

std::string_view trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

}  // namespace

CommandText takeWord(const std::string& text) {
    const std::string_view whole = trimmed(text);
    if (whole.starts_with('#'))
        return {};
    const std::size_t end = whole.find_first_of(blanks);
    if (end == std::string_view::npos)
        return {std::string(whole), {}};
    return {std::string(whole.substr(0, end)), std::string(trimmed(whole.substr(end)))};
}

std::optional<long long> readNumber(const std::string& text, const char* what) {
    if (text.empty())
        return {};
    long long number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || number < 0)
        throw CommandError("'" + oneLine(text) + "' is no " + what);
    return number;
}

}  // namespace velkotx::host
