// Looks for a type whose name is like an unknown one.
#include <schema/Suggestion.h>

#include <schema/Registry.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace schema {

namespace {

char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

// How many letters have to be put in, taken out or replaced to make one name the other, whatever their case.
std::size_t slipsBetween(std::string_view one, std::string_view other) {
    std::vector<std::size_t> row(other.size() + 1);
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = i;
    for (const char letter : one) {
        std::size_t diagonal = row[0]++;
        for (std::size_t i = 0; i < other.size(); ++i) {
            const std::size_t replaced = diagonal + (lower(letter) == lower(other[i]) ? 0 : 1);
            diagonal = row[i + 1];
            row[i + 1] = std::min({replaced, diagonal + 1, row[i] + 1});
        }
    }
    return row.back();
}

}  // namespace

std::string typeLike(const std::string& name, const std::string& space) {
    constexpr std::size_t mostSlips = 2;
    // A short name is like many.
    std::size_t fewest = std::min(mostSlips, name.size() / 4) + 1;
    std::string nearest;
    std::string elsewhere;
    for (const TypeName& known : registeredNames()) {
        const std::string_view other = known.name;
        if (known.space != space) {
            if (other == name && elsewhere.empty()) elsewhere = std::string(known.space) + '#' + name;
            continue;
        }
        const std::size_t longer = std::max(other.size(), name.size());
        if (longer - std::min(other.size(), name.size()) >= fewest) continue;
        const std::size_t slips = slipsBetween(name, other);
        if (slips >= fewest) continue;
        fewest = slips;
        nearest = other;
    }
    return nearest.empty() ? elsewhere : nearest;
}

}  // namespace schema
