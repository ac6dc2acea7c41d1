// The failures that the library raises.
#pragma once

#include <otx/value/Exceptions_e.h>
#include <otx/value/ValueType.h>

#include <string>

namespace otx {

// Throws kind 5: a value of that type doesn't support the operation.
[[noreturn]] void refuse(const char* operation, OTX::ValueType type);
// Throws kind 5: the operation isn't defined for these two types.
[[noreturn]] void refuse(const char* operation, OTX::ValueType left, OTX::ValueType right);

// Throws a COtxException.
[[noreturn]] void fail(OTX::Exceptions_e kind, const std::string& text);

}  // namespace otx
