// What an operator has to hear.
#include "operator/ScreenNews.h"

#include <otx/value/COtxBool.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>

#include <utility>

namespace velkotx::host {

namespace {

using Entries = std::map<const std::string, COtxValue>;

std::optional<ScreenNews::Kind> kindOf(const std::string& eventType) {
    static const std::map<std::string, ScreenNews::Kind> kinds{
        {"HMI-OpenScreen", ScreenNews::Kind::opened},
        {"HMI-InParameterValueChanged", ScreenNews::Kind::changed},
        {"HMI-HighlightScreen", ScreenNews::Kind::highlighted},
        {"HMI-CloseScreen", ScreenNews::Kind::closed},
    };
    const auto found = kinds.find(eventType);
    if (found == kinds.end())
        return {};
    return found->second;
}

std::string textOf(const COtxValue& message, const char* key) {
    return OTX::GetParameter(message, key, OTX::ValueType::String).String();
}

// What can't be copied, being nested too deeply, is for no operator to read.
COtxValue copyOf(const COtxValue& value) {
    try {
        return OTX::DeepCopy(value);
    } catch (const COtxValue&) {
        return COtxString('<' + value.stringType() + '>');
    }
}

}  // namespace

std::optional<ScreenNews> readNews(const COtxValue& message) {
    try {
        const auto kind = kindOf(textOf(message, "eventType"));
        if (!kind)
            return {};
        ScreenNews news{*kind, textOf(message, "screenName"), false, {}};
        news.modal = OTX::GetOptionalParameter(message, "modal", COtxBool(false), OTX::ValueType::Boolean).Bool();
        const COtxValue parameters =
            OTX::GetOptionalParameter(message, "parameters", COtxMap(), OTX::ValueType::Map);
        for (const auto& [name, value] : OTX::ValMap(parameters))
            news.parameters.emplace(name, copyOf(value));
        return news;
    } catch (const COtxValue&) {
        return {};
    }
}

std::optional<std::string> screenClosedBy(const COtxValue& event) {
    try {
        if (textOf(event, "eventType") == "HMI-ScreenClosed")
            return textOf(event, "screenName");
    } catch (const COtxValue&) {  // the run will refuse it
    }
    return {};
}

COtxValue outValuesChanged(const std::string& screen, const std::map<const std::string, COtxValue>& values) {
    return COtxMap(Entries{{"eventType", COtxString("HMI-OutParameterValueChanged")},
                           {"screenName", COtxString(screen)},
                           {"parameters", COtxMap(values)}});
}

COtxValue screenClosed(const std::string& screen) {
    return COtxMap(Entries{{"eventType", COtxString("HMI-ScreenClosed")}, {"screenName", COtxString(screen)}});
}

}  // namespace velkotx::host
