// The units that the library knows. A test compares each of them, prefix by prefix, with UDUNITS-2.
#include "UnitTable.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace otx {

namespace {

constexpr long double pi = std::numbers::pi_v<long double>;

constexpr Dimension none{};
constexpr Dimension length{{1}};
constexpr Dimension mass{{0, 1}};
constexpr Dimension duration{{0, 0, 1}};
constexpr Dimension current{{0, 0, 0, 1}};
constexpr Dimension temperature{{0, 0, 0, 0, 1}};
constexpr Dimension substance{{0, 0, 0, 0, 0, 1}};
constexpr Dimension intensity{{0, 0, 0, 0, 0, 0, 1}};
constexpr Dimension angle{{0, 0, 0, 0, 0, 0, 0, 1}};
constexpr Dimension information{{0, 0, 0, 0, 0, 0, 0, 0, 1}};

constexpr Dimension area = length.toThe(2);
constexpr Dimension volume = length.toThe(3);
constexpr Dimension frequency = duration.toThe(-1);
constexpr Dimension speed = length * frequency;
constexpr Dimension acceleration = speed * frequency;
constexpr Dimension force = mass * acceleration;
constexpr Dimension pressure = force * area.toThe(-1);
constexpr Dimension energy = force * length;
constexpr Dimension power = energy * frequency;
constexpr Dimension charge = current * duration;
constexpr Dimension voltage = power * current.toThe(-1);
constexpr Dimension resistance = voltage * current.toThe(-1);
constexpr Dimension flux = voltage * duration;

template <class Row, std::size_t size>
consteval std::array<Row, size> ordered(std::array<Row, size> rows, std::string_view Row::*key) {
    std::ranges::sort(rows, {}, key);
    return rows;
}

// Aliases below give the other spellings. The gallon and its parts are those of the United States, the calorie and
// the Btu of the International Steam Table.
constexpr auto entries = ordered(
    std::to_array<UnitEntry>({
        {"m", {}, length, Prefixes::All},
        {"g", {1, 1000}, mass, Prefixes::All},
        {"s", {}, duration, Prefixes::All},
        {"A", {}, current, Prefixes::All},
        {"K", {}, temperature, Prefixes::All},
        {"mol", {}, substance, Prefixes::All},
        {"cd", {}, intensity, Prefixes::All},
        {"rad", {}, angle, Prefixes::All},
        {"bit", {}, information, Prefixes::Larger},

        {"Hz", {}, frequency, Prefixes::All},
        {"N", {}, force, Prefixes::All},
        {"Pa", {}, pressure, Prefixes::All},
        {"J", {}, energy, Prefixes::All},
        {"W", {}, power, Prefixes::All},
        {"C", {}, charge, Prefixes::All},
        {"V", {}, voltage, Prefixes::All},
        {"F", {}, charge* voltage.toThe(-1), Prefixes::All},
        {"Ohm", {}, resistance, Prefixes::All},
        {"S", {}, resistance.toThe(-1), Prefixes::All},
        {"Wb", {}, flux, Prefixes::All},
        {"T", {}, flux* area.toThe(-1), Prefixes::All},
        {"H", {}, flux* current.toThe(-1), Prefixes::All},
        {"lm", {}, intensity, Prefixes::All},
        {"lx", {}, intensity* area.toThe(-1), Prefixes::All},

        {"min", {60}, duration},
        {"h", {3600}, duration},
        {"d", {86400}, duration},
        {"l", {1, 1000}, volume, Prefixes::All},
        {"t", {1000}, mass},
        {"bar", {100000}, pressure, Prefixes::All},
        {"mmHg", {135951.L * 980665, 1e9L}, pressure},
        {"atm", {101325}, pressure},
        {"kgf", {980665, 1e5L}, force},
        {"PS", {73549875, 1e5L}, power},
        {"cal", {41868, 1e4L}, energy, Prefixes::Larger},
        {"gn", {980665, 1e5L}, acceleration},
        {"B", {8}, information, Prefixes::Larger},
        {"Bd", {}, frequency, Prefixes::Larger},

        {"mil", {254, 1e7L}, length},
        {"in", {254, 1e4L}, length},
        {"ft", {3048, 1e4L}, length},
        {"yd", {9144, 1e4L}, length},
        {"mi", {1609344, 1000}, length},
        {"nmi", {1852}, length},
        {"kn", {1852, 3600}, speed},
        {"oz", {45359237, 16e8L}, mass},
        {"lb", {45359237, 1e8L}, mass},
        {"lbf", {44482216152605.L, 1e13L}, force},
        {"psi", {44482216152605.L, 64516e5L}, pressure},
        {"inHg", {254.L * 135951 * 980665, 1e10L}, pressure},
        {"gal", {3785411784.L, 1e12L}, volume},
        {"qt", {946352946, 1e12L}, volume},
        {"pt", {473176473, 1e12L}, volume},
        {"floz", {295735295625.L, 1e16L}, volume},
        {"Btu", {105505585262.L, 1e8L}, energy},
        {"hp", {16764 * 44482216152605.L, 1e15L}, power},

        {"degC", {100, 100, 27315}, temperature},
        {"degF", {500, 900, 229835}, temperature},
        {"degR", {5, 9}, temperature},

        {"deg", {pi, 180}, angle},
        {"arcmin", {pi, 10800}, angle},
        {"arcsec", {pi, 648000}, angle},
        {"gon", {pi, 200}, angle},

        {"%", {1, 100}, none},
        {"‰", {1, 1000}, none},
        {"ppm", {1, 1e6L}, none},
        {"ppb", {1, 1e9L}, none},
        {"rev", {}, none},
        {"stroke", {}, none},
    }),
    &UnitEntry::symbol);

// A turn is a count, not an angle: rpm is what engineers also write as 1/min.
constexpr auto aliases = ordered(
    std::to_array<UnitAlias>({
        {"-", "1"},
        {"U", "rev"},
        {"rpm", "1/min"},
        {"Hub", "stroke"},
        {"pct", "%"},
        {"°", "deg"},
        {"°C", "degC"},
        {"°F", "degF"},
        {"°R", "degR"},
        {"℃", "degC"},
        {"℉", "degF"},
        {"deg C", "degC"},
        {"deg F", "degF"},
        {"degK", "K"},
        {"ohm", "Ohm", Prefixes::All},
        {"\u03A9", "Ohm", Prefixes::All},  // capital omega
        {"\u2126", "Ohm", Prefixes::All},  // ohm sign
        {"L", "l", Prefixes::All},
        {"sec", "s", Prefixes::All},
        {"hr", "h"},
        {"kmh", "km/h"},
        {"kph", "km/h"},
        {"mph", "mi/h"},
        {"mpg", "mi/gal"},
        {"kt", "kn"},
        {"cc", "cm3"},
        {"ccm", "cm3"},
        {"kp", "kgf"},
        {"lbs", "lb"},
        {"Nm", "N.m", Prefixes::All},
        {"Nmm", "N.mm"},
        {"Ncm", "N.cm"},
        {"lbft", "lbf.ft"},
        {"lb-ft", "lbf.ft"},
        {"ft-lb", "lbf.ft"},
        {"Ah", "A.h", Prefixes::All},
        {"As", "A.s", Prefixes::All},
        {"Vs", "V.s", Prefixes::All},
        {"Ws", "W.s", Prefixes::All},
        {"Wh", "W.h", Prefixes::All},
        {"VA", "V.A", Prefixes::All},
        {"var", "V.A", Prefixes::All},
        {"Baud", "Bd", Prefixes::Larger},
    }),
    &UnitAlias::symbol);

constexpr auto words = ordered(
    std::to_array<UnitWord>({
        {"meter", "m"},      {"metre", "m"},     {"gram", "g"},       {"second", "s"},       {"amp", "A"},
        {"ampere", "A"},     {"kelvin", "K"},    {"mole", "mol"},     {"candela", "cd"},     {"radian", "rad"},
        {"hertz", "Hz"},     {"newton", "N"},    {"pascal", "Pa"},    {"joule", "J"},        {"watt", "W"},
        {"coulomb", "C"},    {"volt", "V"},      {"farad", "F"},      {"ohm", "Ohm"},        {"siemens", "S"},
        {"weber", "Wb"},     {"tesla", "T"},     {"henry", "H"},      {"lumen", "lm"},       {"lux", "lx"},
        {"minute", "min"},   {"hour", "h"},      {"day", "d"},        {"liter", "l"},        {"litre", "l"},
        {"tonne", "t"},      {"inch", "in"},     {"inches", "in"},    {"foot", "ft"},        {"feet", "ft"},
        {"yard", "yd"},      {"mile", "mi"},     {"knot", "kn"},      {"ounce", "oz"},       {"pound", "lb"},
        {"gallon", "gal"},   {"quart", "qt"},    {"pint", "pt"},      {"horsepower", "hp"},  {"calorie", "cal"},
        {"celsius", "degC"}, {"degree", "deg"},  {"percent", "%"},    {"fahrenheit", "degF"}, {"atmosphere", "atm"},
        {"byte", "B"},       {"baud", "Bd"},     {"bar", "bar"},      {"bit", "bit"},        {"revolution", "rev"},
        {"rpm", "rpm"},      {"mph", "mph"},     {"kph", "kph"},      {"mpg", "mpg"},        {"psi", "psi"},
    }),
    &UnitWord::word);

constexpr auto prefixes = std::to_array<UnitPrefix>({
    {"Y", "yotta", 24}, {"Z", "zetta", 21}, {"E", "exa", 18},    {"P", "peta", 15},   {"T", "tera", 12},
    {"G", "giga", 9},   {"M", "mega", 6},   {"k", "kilo", 3},    {"h", "hecto", 2},   {"da", "deka", 1},
    {"d", "deci", -1},  {"c", "centi", -2}, {"m", "milli", -3},  {"u", "micro", -6},  {"\u00B5", "micro", -6},
    {"\u03BC", "micro", -6}, {"n", "nano", -9},  {"p", "pico", -12},  {"f", "femto", -15}, {"a", "atto", -18},
    {"z", "zepto", -21}, {"y", "yocto", -24},
});

template <class Rows>
auto find(const Rows& rows, std::string_view key, std::string_view Rows::value_type::*member) noexcept {
    const auto found = std::ranges::lower_bound(rows, key, {}, member);
    return found != rows.end() && (*found).*member == key ? &*found : nullptr;
}

bool takes(Prefixes allowed, const UnitPrefix* prefix) noexcept {
    constexpr int kilo = 3;
    if (prefix == nullptr || allowed == Prefixes::All) return true;
    return allowed == Prefixes::Larger && prefix->exponent >= kilo;
}

std::optional<FoundUnit> findSymbol(std::string_view symbol, const UnitPrefix* prefix) noexcept {
    if (const UnitEntry* const entry = find(entries, symbol, &UnitEntry::symbol); entry != nullptr) {
        if (takes(entry->prefixes, prefix)) return FoundUnit{entry, {}, prefix};
    } else if (const UnitAlias* const alias = find(aliases, symbol, &UnitAlias::symbol); alias != nullptr) {
        if (takes(alias->prefixes, prefix)) return FoundUnit{nullptr, alias->meaning, prefix};
    }
    return {};
}

std::optional<FoundUnit> findWord(std::string_view word, const UnitPrefix* prefix) noexcept {
    const UnitWord* row = find(words, word, &UnitWord::word);
    if (row == nullptr && word.size() > 1 && word.back() == 's')
        row = find(words, word.substr(0, word.size() - 1), &UnitWord::word);
    return row != nullptr ? findSymbol(row->symbol, prefix) : std::nullopt;
}

// Every way to take a prefix off the text.
template <class Look>
std::optional<FoundUnit> withPrefix(std::string_view text, std::string_view UnitPrefix::*spelling, Look look) noexcept {
    for (const UnitPrefix& prefix : prefixes) {
        const std::string_view start = prefix.*spelling;
        if (text.size() <= start.size() || !text.starts_with(start)) continue;
        if (const auto found = look(text.substr(start.size()), &prefix)) return found;
    }
    return {};
}

}  // namespace

UnitScale UnitPrefix::scale() const noexcept { return UnitScale{10}.toThe(exponent); }

std::span<const UnitEntry> unitEntries() noexcept { return entries; }
std::span<const UnitAlias> unitAliases() noexcept { return aliases; }
std::span<const UnitWord> unitWords() noexcept { return words; }
std::span<const UnitPrefix> unitPrefixes() noexcept { return prefixes; }

std::optional<FoundUnit> findUnit(std::string_view symbol) noexcept {
    constexpr std::size_t longestWord = 24;
    if (const auto found = findSymbol(symbol, nullptr)) return found;
    if (const auto found = withPrefix(symbol, &UnitPrefix::symbol, findSymbol)) return found;
    if (symbol.size() > longestWord) return {};
    std::array<char, longestWord> lowered{};
    std::ranges::transform(symbol, lowered.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    });
    const std::string_view word(lowered.data(), symbol.size());
    if (const auto found = findWord(word, nullptr)) return found;
    return withPrefix(word, &UnitPrefix::name, findWord);
}

const UnitEntry* coherentUnit(const Dimension& dimension) noexcept {
    const auto found = std::ranges::find_if(
        entries, [&](const UnitEntry& entry) { return entry.scale.isOne() && entry.dimension == dimension; });
    return found != entries.end() ? &*found : nullptr;
}

}  // namespace otx
