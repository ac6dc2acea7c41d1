// The integer-backed enumerations and their literals.
#pragma once

#include <otx/value/COtxValue.h>

#include <optional>
#include <string>
#include <string_view>

namespace otx {

// Whether the type is one of the enumerations whose literals the library knows.
bool isEnumeration(OTX::ValueType type) noexcept;

// The number of a literal; nothing for one that the type doesn't have.
std::optional<int> enumerationNumber(OTX::ValueType type, std::string_view literal) noexcept;
// The literal of a number, or the number's digits where there is none.
std::string enumerationLiteral(OTX::ValueType type, int number);

// A value of one of these types. Throws kind 2 for a number without a literal.
COtxValue makeEnumeration(OTX::ValueType type, int number);
// A value of any integer-backed enumeration.
COtxValue makeEnumeration(OTX::ValueType type, long long number, const std::string& literal);

}  // namespace otx
