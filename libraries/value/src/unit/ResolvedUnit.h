// What conversions need to know of a unit.
#pragma once

#include <optional>
#include <string_view>

#include "Dimension.h"
#include "UnitScale.h"
#include "UnitTerms.h"

namespace otx {

struct ResolvedUnit {
    Dimension dimension;
    UnitScale scale;
};

// Nothing for a name that is no unit, or whose scale is beyond all numbers. The empty name has no dimension and scale
// 1.
std::optional<ResolvedUnit> resolveUnit(std::string_view name) noexcept;

ResolvedUnit resolve(const UnitTerms& terms) noexcept;

}  // namespace otx
