// The open screens, and the host's messages about them.
#include <OTXHMIIF/HMI.h>
#include <Trace.h>
#include <otx/value/COtxString.h>
#include <otx/value/IString.h>

#include <stdexcept>
#include <utility>

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

HMI::HMI(std::weak_ptr<velkotx::HostEventSink> sink) : host(std::move(sink)) {}

HMI::~HMI() = default;

void HMI::closeAll() {
    const std::lock_guard guard(mutex);
    screens.clear();
}

void HMI::inputEvent(const COtxValue& message) {
    OTX_TRACE(4, message);
    const std::string eventType = textEntry(message, "eventType");
    const std::string screenName = textEntry(message, "screenName");
    if (eventType == "HMI-OutParameterValueChanged") {
        entry(message, "parameters");
        if (getScreen(screenName) == nullptr) throw std::runtime_error("Unknown screen: " + screenName);
    } else if (eventType == "HMI-ScreenClosed") {
        const std::lock_guard guard(mutex);
        screens.erase(screenName);
    } else {
        throw std::runtime_error("Unknown event type: " + eventType);
    }
}

std::shared_ptr<Screen> HMI::getScreen(const std::string& name) {
    {
        const std::lock_guard guard(mutex);
        const auto found = screens.find(name);
        if (found != screens.end()) return found->second;
    }
    OTX_TRACE(1, name << " not open");
    return nullptr;
}

}  // namespace OTX
