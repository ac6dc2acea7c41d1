// The keys that mark an object of the OTX form.
#include "JsonTags.h"

#include <algorithm>

#include "TypeNames.h"

namespace otx {

std::optional<OTX::ValueType> jsonTag(std::string_view key) {
    using OTX::ValueType;
    const auto found = std::find(typeNames.begin(), typeNames.end(), key);
    if (found == typeNames.end()) return std::nullopt;
    const auto type = static_cast<ValueType>(found - typeNames.begin());
    switch (type) {
        case ValueType::Empty:
        case ValueType::Boolean:
        case ValueType::Integer:
        case ValueType::String:
        case ValueType::List: return std::nullopt;
        // Float is a tag for the sake of what is no number.
        default: return type;
    }
}

}  // namespace otx
