// The arguments of a provider's constructor or service, as the provider reads and writes them.
#pragma once

#include <otx/Export.h>
#include <otx/value/COtxValue.h>
#include <otx/value/Exceptions_e.h>
#include <otx/value/OtxVariable.h>

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace ExternalServiceProvider {

// In-arguments by their names: independent copies, so that a service may read them on its own thread while the sequence
// goes on. Immutable; any thread.
class OTX_API ProviderArguments {
public:
    // The kind is that of the exceptions below.
    ProviderArguments(const std::map<std::string, COtxValue>& values, OTX::Exceptions_e kind);

    // Throws for one that is missing or of another type.
    COtxValue Required(const std::string& name, OTX::ValueType type) const;
    // Gives the fallback for one that is missing, and throws for one of another type.
    COtxValue Optional(const std::string& name, OTX::ValueType type, const COtxValue& fallback) const;
    // Throws for an argument that isn't among these.
    void AllowOnly(std::initializer_list<std::string_view> names) const;

private:
    std::map<std::string, COtxValue> values_;
    OTX::Exceptions_e kind_;
};

// The in-out and out arguments: variables of the sequence, which sees each write at once. Copies share the variables, which
// live as long as they. Any thread.
class OTX_API ProviderVariables {
public:
    using Cells = std::map<std::string, std::shared_ptr<OtxVariable>>;

    ProviderVariables(Cells inout, Cells out);

    // The value of an in-out argument now. Throws kind 25 (ExecuteException) for one that is missing or of another type.
    COtxValue Read(const std::string& name, OTX::ValueType type) const;
    // Writes an in-out or out argument; nothing happens if the sequence passed none of that name.
    void Write(const std::string& name, const COtxValue& value) const;
    // Throws kind 25 for an in-out or out argument that isn't among these.
    void AllowOnly(std::initializer_list<std::string_view> names) const;

private:
    Cells inout_;
    Cells out_;
};

}  // namespace ExternalServiceProvider
