// What conversions need to know of a unit.
#include "ResolvedUnit.h"

#include <cmath>

#include "UnitParser.h"

namespace otx {

std::optional<ResolvedUnit> resolveUnit(std::string_view name) noexcept {
    const std::optional<UnitTerms> terms = parseUnit(name);
    if (!terms) return {};
    const ResolvedUnit unit = resolve(*terms);
    const auto usable = [](long double part) { return std::isfinite(part) && part > 0; };
    if (!usable(unit.scale.numerator) || !usable(unit.scale.denominator)) return {};
    return unit;
}

ResolvedUnit resolve(const UnitTerms& terms) noexcept {
    // Only a temperature that stands alone keeps its shift.
    if (terms.size() == 1 && terms.begin()->power == 1) return {terms.begin()->dimension(), terms.begin()->scale()};
    ResolvedUnit unit;
    for (const UnitTerm& term : terms) {
        unit.dimension = unit.dimension * term.dimension().toThe(term.power);
        unit.scale = unit.scale * term.scale().toThe(term.power);
    }
    return unit;
}

}  // namespace otx
