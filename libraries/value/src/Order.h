// The order of values: by family, then by value.
#pragma once

#include <otx/value/COtxValue.h>

#include <compare>

namespace otx {

// Families in their order: the empty value, Boolean, numbers (Integer, Float, integer-backed enumerations, quantities
// without a dimension), String, ByteField, List, Map, and then every other type for itself by its number. A null
// pointer is the empty value.
std::strong_ordering compareFamilies(const COtxValueBehaviour* left, const COtxValueBehaviour* right);

// Exact, without rounding a large integer to a double. NaN equals itself and is below every number, so that it can be
// a key.
std::weak_ordering compareNumbers(long long left, double right) noexcept;
std::weak_ordering compareNumbers(double left, double right) noexcept;
// Both are of the family of numbers.
std::weak_ordering compareNumbers(const COtxValueBehaviour& left, const COtxValueBehaviour& right);

}  // namespace otx
