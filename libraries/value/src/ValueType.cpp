// The names of the value types.
#include <otx/value/ValueType.h>

#include <cstddef>

#include "TypeNames.h"

std::string OTX::typeName(ValueType type) {
    const auto number = static_cast<std::size_t>(type);
    if (number < otx::typeNames.size()) return std::string(otx::typeNames[number]);
    return "Type " + std::to_string(static_cast<int>(type));
}
