// Names of units to their terms.
#pragma once

#include <optional>
#include <string_view>

#include "UnitTerms.h"

namespace otx {

// Reads a name such as "km/h", "m/s^2", "min-1", "W/(m2.K)", "l/100km" or "µV". Factors are joined by ".", "*", "·"
// or a blank, "/" divides by the one factor that follows; a power follows as digits, with a sign, after "^", or as
// superscripts. A number right before a unit is one factor with it. Nothing for what is no unit. The terms refer to
// the name.
std::optional<UnitTerms> parseUnit(std::string_view name) noexcept;

}  // namespace otx
