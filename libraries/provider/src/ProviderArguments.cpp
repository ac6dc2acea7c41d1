// Reading and writing the arguments of constructors and services.
#include <otx/provider/ProviderArguments.h>
#include <otx/value/COtxException.h>
#include <otx/value/Functions.h>

#include <algorithm>
#include <utility>

namespace ExternalServiceProvider {

namespace {

using OTX::Exceptions_e;
using OTX::ValueType;

std::string quoted(const std::string& name) { return "Argument '" + name + "'"; }

void requireType(const COtxValue& value, ValueType type, const std::string& name, Exceptions_e kind) {
    if (type == ValueType::Empty || value.Type() == type) return;
    throw COtxException(kind, quoted(name) + " is of type " + value.stringType() + ", " + OTX::typeName(type) + " is needed");
}

template <class Map>
void requireAmong(const Map& arguments, std::initializer_list<std::string_view> names, Exceptions_e kind) {
    for (const auto& [name, argument] : arguments)
        if (std::find(names.begin(), names.end(), name) == names.end()) throw COtxException(kind, quoted(name) + " is unknown");
}

}  // namespace

ProviderArguments::ProviderArguments(const std::map<std::string, COtxValue>& values, Exceptions_e kind) : kind_(kind) {
    for (const auto& [name, value] : values) values_.emplace(name, OTX::DeepCopy(value));
}

COtxValue ProviderArguments::Required(const std::string& name, ValueType type) const {
    const auto found = values_.find(name);
    if (found == values_.end()) throw COtxException(kind_, quoted(name) + " is missing");
    requireType(found->second, type, name, kind_);
    return found->second;
}

COtxValue ProviderArguments::Optional(const std::string& name, ValueType type, const COtxValue& fallback) const {
    return values_.contains(name) ? Required(name, type) : fallback;
}

void ProviderArguments::AllowOnly(std::initializer_list<std::string_view> names) const {
    requireAmong(values_, names, kind_);
}

ProviderVariables::ProviderVariables(Cells inout, Cells out) : inout_(std::move(inout)), out_(std::move(out)) {}

COtxValue ProviderVariables::Read(const std::string& name, ValueType type) const {
    const auto found = inout_.find(name);
    if (found == inout_.end()) throw COtxException(Exceptions_e::ExecuteException, quoted(name) + " is missing");
    COtxValue value = found->second->Value();
    requireType(value, type, name, Exceptions_e::ExecuteException);
    return value;
}

void ProviderVariables::Write(const std::string& name, const COtxValue& value) const {
    for (const Cells* const cells : {&inout_, &out_})
        if (const auto found = cells->find(name); found != cells->end()) found->second->Set(value);
}

void ProviderVariables::AllowOnly(std::initializer_list<std::string_view> names) const {
    requireAmong(inout_, names, Exceptions_e::ExecuteException);
    requireAmong(out_, names, Exceptions_e::ExecuteException);
}

}  // namespace ExternalServiceProvider
