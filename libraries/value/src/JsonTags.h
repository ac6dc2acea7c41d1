// The keys that mark an object of the OTX form.
#pragma once

#include <otx/value/ValueType.h>

#include <optional>
#include <string_view>

namespace otx {

// The type whose name the key is, if a JSON object with that key alone stands for a value of that type. These are all
// types but those that JSON carries natively.
std::optional<OTX::ValueType> jsonTag(std::string_view key);

}  // namespace otx
