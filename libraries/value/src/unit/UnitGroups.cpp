// The units of one group of countries for those of another.
#include "UnitGroups.h"

#include <array>
#include <span>

#include "UnitParser.h"

namespace otx {

namespace {

struct Equivalent {
    std::string_view unit;
    std::string_view other;
    // Only where the unit is all there is: kW are hp, but kWh stay.
    bool alone = false;
};

constexpr auto toImperial = std::to_array<Equivalent>({
    {"km", "mi"},   {"m", "ft"},     {"dm", "in"},   {"cm", "in"},      {"mm", "in"},
    {"l", "gal"},   {"ml", "floz", true},            {"kg", "lb"},      {"g", "oz", true},
    {"t", "lb"},    {"N", "lbf"},    {"kN", "lbf"},  {"kgf", "lbf"},    {"bar", "psi"},
    {"mbar", "psi"}, {"Pa", "psi", true},            {"hPa", "psi"},    {"kPa", "psi"},
    {"MPa", "psi"}, {"kW", "hp", true},              {"PS", "hp", true}, {"kJ", "Btu", true},
    {"degC", "degF"},
});

constexpr auto toMetric = std::to_array<Equivalent>({
    {"mi", "km"},    {"yd", "m"},     {"ft", "m"},     {"in", "mm"},    {"mil", "um"},
    {"gal", "l"},    {"qt", "l"},     {"pt", "l"},     {"floz", "ml"},  {"lb", "kg"},
    {"oz", "g"},     {"lbf", "N"},    {"psi", "bar"},  {"inHg", "kPa"}, {"hp", "kW"},
    {"Btu", "kJ"},   {"degF", "degC"}, {"degR", "K"},
});

// What people write instead.
struct Contraction {
    std::string_view name;
    std::string_view usual;
};
constexpr auto contractions = std::to_array<Contraction>({{"mi/h", "mph"}, {"mi/gal", "mpg"}, {"N.m", "Nm"}});

const Equivalent* find(std::span<const Equivalent> equivalents, const UnitTerm& term, bool alone) {
    const std::string unit = term.text();
    for (const Equivalent& equivalent : equivalents)
        if (equivalent.unit == unit && (alone || !equivalent.alone)) return &equivalent;
    return nullptr;
}

}  // namespace

std::optional<UnitGroup> unitGroup(std::string_view name) noexcept {
    if (name == "metric") return UnitGroup::Metric;
    if (name == "imperial") return UnitGroup::Imperial;
    return {};
}

std::optional<std::string> equivalentUnit(const UnitTerms& terms, UnitGroup group) {
    const std::span<const Equivalent> equivalents =
        group == UnitGroup::Metric ? std::span<const Equivalent>(toMetric) : std::span<const Equivalent>(toImperial);
    const bool alone = terms.size() == 1 && terms.begin()->power == 1;
    UnitTerms localized = terms;
    bool changed = false;
    for (UnitTerm& term : localized) {
        if (term.isNumber()) continue;
        const Equivalent* const equivalent = find(equivalents, term, alone);
        if (equivalent == nullptr) continue;
        const UnitTerm other = *parseUnit(equivalent->other)->begin();
        term.entry = other.entry;
        term.prefix = other.prefix;
        changed = true;
    }
    if (!changed) return {};
    const std::string name = localized.name();
    for (const Contraction& contraction : contractions)
        if (contraction.name == name) return std::string(contraction.usual);
    return name;
}

}  // namespace otx
