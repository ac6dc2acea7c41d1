// What the library knows of Unit values.
#pragma once

#include <otx/value/COtxValue.h>

#include <optional>
#include <string>

#include "unit/ResolvedUnit.h"

namespace otx {

// The name of a unit; the empty handle is the empty unit, as plain numbers have it.
const std::string& unitName(const COtxValue& unit);

// Nothing for a unit that is in no table. The library's own units keep the answer.
std::optional<ResolvedUnit> resolvedUnit(const COtxValue& unit);

// Throws kind 17 for a unit that is in no table.
ResolvedUnit neededUnit(const COtxValue& unit);
UnitTerms neededTerms(const COtxValue& unit);

// Throws kind 18: the units are of different dimensions.
[[noreturn]] void failConversion(const COtxValue& from, const COtxValue& to);

}  // namespace otx
