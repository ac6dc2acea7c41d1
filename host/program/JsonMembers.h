// The members of a JSON object that has to have a certain form.
#pragma once

#include <otx/value/COtxValue.h>

#include <initializer_list>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velkotx::host {

// A JSON text doesn't have the form that was asked for. what() says why, in one line.
class FormError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Reads members by their type. Everything throws FormError, with the member's name.
class JsonMembers {
public:
    explicit JsonMembers(const COtxValue& object);

    bool has(const std::string& name) const { return members_.contains(name); }
    // None where the member is absent.
    std::optional<std::string> text(const std::string& name) const;
    std::optional<long long> number(const std::string& name, long long largest) const;  // from 0 on
    std::optional<COtxValue> object(const std::string& name) const;
    std::optional<std::vector<COtxValue>> list(const std::string& name) const;
    std::string requiredText(const std::string& name) const;  // not empty

    void refuseOthersThan(std::initializer_list<std::string_view> names) const;

private:
    const COtxValue* find(const std::string& name) const;

    std::map<std::string, COtxValue> members_;
};

}  // namespace velkotx::host
