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
    const std::string line = "message " + json;
    Transcript::Place place = 0;
    if (type == "HMI-InParameterValueChanged")  // comes from the screen's own thread
        place = transcript_.addAside(OTX::GetParameter(message, "screenName", OTX::ValueType::String).String(), line);
    else
        place = transcript_.add(line);
    int number = 0;
    {
        const std::lock_guard guard(messagesLock_);
        number = ++messages_;
        if (keeps_) kept_.push_back({message, json});
    }
    if (answerer_ != nullptr) answerer_->answer(message, place);
    if (const auto refusal = refusals_.find(number); refusal != refusals_.end()) fail(refusal->second);
}

void RecordingHost::recordKept() {
    const std::lock_guard guard(messagesLock_);
    for (const Kept& one : kept_) {
        const std::string json = one.message.ToJSON().String();
        if (json != one.json) transcript_.add("changed " + one.json + " to " + json);
    }
    kept_.clear();
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
