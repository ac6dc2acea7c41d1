// Documents that were meant as XML and aren't taken as such.
#include "program/NearlyXml.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <istream>
#include <string>
#include <string_view>

namespace velkotx::host {

bool isNearlyXml(std::istream& document) {
    using namespace std::literals;
    static constexpr std::string_view declaration = "<?xml";
    static constexpr std::array beginnings{"<"sv, "\xEF\xBB\xBF"sv, "\xFF\xFE"sv, "\xFE\xFF"sv, "\0<"sv};
    document.clear();
    document.seekg(0);
    std::string word;
    document >> std::ws >> std::setw(declaration.size() + 1) >> word;  // one character more tells a longer word
    return word != declaration &&
           std::ranges::any_of(beginnings, [&](std::string_view beginning) { return word.starts_with(beginning); });
}

}  // namespace velkotx::host
