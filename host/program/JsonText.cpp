// JSON as text.
#include "program/JsonText.h"

#include <otx/value/COtxString.h>
#include <otx/value/IString.h>

namespace velkotx::host {

std::string jsonText(const COtxValue& value) {
    const COtxValue json = value.ToJSON();
    return json.String();
}

std::string jsonText(const std::string& text) {
    return jsonText(COtxString(text));
}

std::string jsonText(const char* text) {
    return jsonText(std::string(text));
}

std::string jsonText(bool value) {
    return value ? "true" : "false";
}

JsonObject& JsonObject::add(const std::string& name, const std::string& value) {
    if (!members_.empty())
        members_ += ',';
    members_ += jsonText(name) + ':' + value;
    return *this;
}

std::string JsonObject::text() const {
    return '{' + members_ + '}';
}

std::string jsonArray(const std::vector<std::string>& values) {
    std::string text = "[";
    for (const std::string& value : values) {
        if (text.size() > 1)
            text += ',';
        text += value;
    }
    return text + ']';
}

}  // namespace velkotx::host
