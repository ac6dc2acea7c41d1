// The members of a JSON object that has to have a certain form.
#include "program/JsonMembers.h"

#include <otx/value/IString.h>

#include <algorithm>

namespace velkotx::host {

JsonMembers::JsonMembers(const COtxValue& object) {
    if (object.Type() != OTX::ValueType::Map)
        throw FormError("a JSON object was expected");
    for (const auto& [name, value] : object.Map()) {
        // A map of the OTX form may have other keys.
        if (name.Type() != OTX::ValueType::String)
            throw FormError("a JSON object was expected");
        members_.emplace(name.String(), value);
    }
}

const COtxValue* JsonMembers::find(const std::string& name) const {
    const auto found = members_.find(name);
    return found != members_.end() ? &found->second : nullptr;
}

std::optional<std::string> JsonMembers::text(const std::string& name) const {
    const COtxValue* const value = find(name);
    if (value == nullptr)
        return {};
    if (value->Type() != OTX::ValueType::String)
        throw FormError("'" + name + "' has to be a string");
    return value->String();
}

std::optional<long long> JsonMembers::number(const std::string& name, long long largest) const {
    const COtxValue* const value = find(name);
    if (value == nullptr)
        return {};
    if (value->Type() != OTX::ValueType::Integer || value->Int() < 0 || value->Int() > largest)
        throw FormError("'" + name + "' has to be an integer from 0 to " + std::to_string(largest));
    return value->Int();
}

std::optional<COtxValue> JsonMembers::object(const std::string& name) const {
    const COtxValue* const value = find(name);
    if (value == nullptr)
        return {};
    if (value->Type() != OTX::ValueType::Map)
        throw FormError("'" + name + "' has to be an object");
    return *value;
}

std::optional<std::vector<COtxValue>> JsonMembers::list(const std::string& name) const {
    const COtxValue* const value = find(name);
    if (value == nullptr)
        return {};
    if (value->Type() != OTX::ValueType::List)
        throw FormError("'" + name + "' has to be an array");
    return value->List();
}

std::string JsonMembers::requiredText(const std::string& name) const {
    const std::optional<std::string> value = text(name);
    if (!value)
        throw FormError("'" + name + "' is missing");
    if (value->empty())
        throw FormError("'" + name + "' is empty");
    return *value;
}

void JsonMembers::refuseOthersThan(std::initializer_list<std::string_view> names) const {
    for (const auto& [name, value] : members_)
        if (std::find(names.begin(), names.end(), name) == names.end())
            throw FormError("unknown key '" + name + "'");
}

}  // namespace velkotx::host
