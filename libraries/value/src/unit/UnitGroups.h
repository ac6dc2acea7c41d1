// The units of one group of countries for those of another.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "UnitTerms.h"

namespace otx {

enum class UnitGroup { Metric, Imperial };

// "metric" and "imperial"; nothing for others.
std::optional<UnitGroup> unitGroup(std::string_view name) noexcept;

// The name of the unit that the group uses in place of these, factor by factor; nothing where it uses the same.
std::optional<std::string> equivalentUnit(const UnitTerms& terms, UnitGroup group);

}  // namespace otx
