// Look-ups in maps with string keys.
#include <otx/value/Functions.h>

#include <otx/value/COtxString.h>
#include <otx/value/IString.h>

#include "Refusal.h"

namespace OTX {

namespace {

// The entry of that key, or nothing.
const COtxValue* find(const COtxValue& map, const std::string& key) {
    const auto& entries = map.Map();
    const auto found = entries.find(COtxString(key));
    return found == entries.end() ? nullptr : &found->second;
}

COtxValue checked(const COtxValue& value, const std::string& key, ValueType type) {
    if (type != ValueType::Empty && value.Type() != type)
        otx::fail(Exceptions_e::TypeMismatchException, "Parameter '" + key + "' is of type " + value.stringType() +
                                                           " instead of " + typeName(type));
    return value;
}

}  // namespace

COtxValue GetParameter(const COtxValue& map, const std::string& key, ValueType type) {
    const COtxValue* const value = find(map, key);
    if (value == nullptr) otx::fail(Exceptions_e::OutOfBoundsException, "Parameter '" + key + "' is missing");
    return checked(*value, key, type);
}

COtxValue GetOptionalParameter(const COtxValue& map, const std::string& key, const COtxValue& fallback,
                               ValueType type) {
    if (map.Type() == ValueType::Empty) return fallback;
    const COtxValue* const value = find(map, key);
    return value == nullptr ? fallback : checked(*value, key, type);
}

std::map<const std::string, COtxValue> ValMap(const COtxValue& map) {
    std::map<const std::string, COtxValue> result;
    if (map.Type() == ValueType::Empty) return result;
    for (const auto& [key, value] : map.Map()) result.emplace_hint(result.end(), key.String(), value);
    return result;
}

}  // namespace OTX
