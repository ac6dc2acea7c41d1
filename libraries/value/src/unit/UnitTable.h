// The units that the library knows.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "Dimension.h"
#include "UnitScale.h"

namespace otx {

// Larger ones are those from kilo on.
enum class Prefixes { None, Larger, All };

struct UnitPrefix {
    std::string_view symbol;
    std::string_view name;
    int exponent;

    UnitScale scale() const noexcept;
};

struct UnitEntry {
    std::string_view symbol;
    UnitScale scale;
    Dimension dimension;
    Prefixes prefixes = Prefixes::None;
};

// Another spelling: a symbol that stands for a unit or for a product of units, of which the first takes the prefix.
struct UnitAlias {
    std::string_view symbol;
    std::string_view meaning;
    Prefixes prefixes = Prefixes::None;
};

// A word for a symbol: in any case, also with a plural "s", and with the names of prefixes where the unit takes
// those.
struct UnitWord {
    std::string_view word;
    std::string_view symbol;
};

// Each is ordered by its first member, but for the prefixes.
std::span<const UnitEntry> unitEntries() noexcept;
std::span<const UnitAlias> unitAliases() noexcept;
std::span<const UnitWord> unitWords() noexcept;
std::span<const UnitPrefix> unitPrefixes() noexcept;

// What one symbol stands for: an entry, or else the meaning of an alias.
struct FoundUnit {
    const UnitEntry* entry = nullptr;
    std::string_view meaning;
    const UnitPrefix* prefix = nullptr;
};

// A symbol as it stands comes before one with a prefix ("min" is no milli-inch), a symbol before a word.
std::optional<FoundUnit> findUnit(std::string_view symbol) noexcept;

// The entry without a scale of its own that measures the dimension, such as W; a null pointer if there is none.
const UnitEntry* coherentUnit(const Dimension& dimension) noexcept;

}  // namespace otx
