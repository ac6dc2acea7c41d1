// The host's messages about screens.
#include <OTXHMIIF/HMI.h>
#include <OTXHMIIF/Screen.h>
#include <Trace.h>
#include <otx/value/COtxString.h>
#include <otx/value/IString.h>

#include <stdexcept>

namespace OTX {

namespace {

const COtxValue& entry(const COtxValue& message, const char* key) {
    const auto& entries = message.Map();
    const auto found = entries.find(COtxString(key));
    if (found == entries.end()) throw std::out_of_range("invalid map<K, T> key");
    return found->second;
}

std::string textEntry(const COtxValue& message, const char* key) {
    return entry(message, key).ToString().String();
}

}  // namespace

void HMI::inputEvent(const COtxValue& message) {
    OTX_TRACE(4, message);
    const std::string eventType = textEntry(message, "eventType");
    const std::string screenName = textEntry(message, "screenName");
    if (eventType == "HMI-OutParameterValueChanged") {
        const COtxValue& parameters = entry(message, "parameters");
        const auto screen = getScreen(screenName);
        if (screen == nullptr) throw std::runtime_error("Unknown screen: " + screenName);
        screen->outValueChanged(parameters);
    } else if (eventType == "HMI-ScreenClosed") {
        remove(screenName);
    } else {
        throw std::runtime_error("Unknown event type: " + eventType);
    }
}

}  // namespace OTX
