// The host object of the runner: records the messages of a run.
#include "RecordingHost.h"

#include <otx/value/COtxString.h>
#include <otx/value/COtxValue.h>
#include <otx/value/Functions.h>
#include <otx/value/IString.h>

#include <map>

namespace documents {

void RecordingHost::sendRequest(const COtxValue& message) {
    const std::string type = OTX::GetParameter(message, "eventType", OTX::ValueType::String).String();
    if (type == "FlowStopped" && stepper_ != nullptr) {
        const COtxValue status = OTX::GetParameter(message, "status", OTX::ValueType::Map);
        if (!stopKeys_.empty()) recordStop(status);
        stepper_->flowStopped(OTX::GetParameter(status, "id", OTX::ValueType::Integer).Int());
        return;
    }
    const std::string json = message.ToJSON().String();
    transcript_.add("message " + json);
}

void RecordingHost::recordStop(const COtxValue& status) {
    std::string line;
    for (const std::string& key : stopKeys_) {
        const auto entry = status.Map().find(COtxString(key));
        if (entry == status.Map().end()) continue;
        line += line.empty() ? '{' : ',';
        line += '"' + key + "\":";
        line += entry->second.ToJSON().String();
    }
    transcript_.add("stop " + (line.empty() ? "{" : line) + "}");
}

}  // namespace documents
