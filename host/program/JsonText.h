// JSON as text: what the program prints with --json.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>
#include <vector>

namespace velkotx::host {

// The JSON text of a value, in the form that the value itself asks for.
std::string jsonText(const COtxValue& value);

// The JSON text of a string.
std::string jsonText(const std::string& text);
std::string jsonText(const char* text);

std::string jsonText(bool value);

// A JSON object that keeps the order in which its members are added. Values are JSON texts.
class JsonObject {
public:
    JsonObject& add(const std::string& name, const std::string& value);
    std::string text() const;

private:
    std::string members_;
};

// "[a,b]" of JSON texts.
std::string jsonArray(const std::vector<std::string>& values);

}  // namespace velkotx::host
