// A diagnostic service.
#include "RecordingService.h"

#include "Answers.h"
#include "RecordingRequest.h"
#include "RecordingResponse.h"
#include "RecordingResult.h"

#include <otx/value/COtxException.h>
#include <otx/value/COtxList.h>

#include <memory>
#include <utility>

namespace documents {

RecordingService::RecordingService(CallRecorder& recorder, std::string label, std::string channel)
    : Handle(recorder, std::move(label), OTX::ValueType::DiagService), channel_(std::move(channel)) {}

COtxValue RecordingService::EventSource() {
    call("EventSource");
    return source_;
}

void RecordingService::Execute(bool suppressPositiveResponse) {
    call("Execute", suppressPositiveResponse);
    const std::lock_guard guard(resultsLock_);
    results_.push_back(nextResult());
    if (label() == "late")
        signallers_.emplace_back([this] { source_.EventSource().Put(self()); });
    else if (label() != "held")
        source_.EventSource().Put(self());
}

COtxValue RecordingService::GetAllResultsAndClear() {
    call("GetAllResultsAndClear");
    const std::lock_guard guard(resultsLock_);
    return COtxList(std::exchange(results_, {}));
}

COtxValue RecordingService::GetDiagServiceName() {
    call("GetDiagServiceName");
    return COtxString(label());
}

COtxValue RecordingService::GetRequest() {
    call("GetRequest");
    return COtxValue(std::make_shared<RecordingRequest>(recorder(), label() + ".request"));
}

COtxValue RecordingService::GetFirstResult() {
    call("GetFirstResult");
    const std::lock_guard guard(resultsLock_);
    if (results_.empty()) throw COtxException(OTX::Exceptions_e::InvalidStateException, "no result yet");
    return results_.front();
}

COtxValue RecordingService::GetAllResults() {
    call("GetAllResults");
    const std::lock_guard guard(resultsLock_);
    return COtxList(results_);
}

void RecordingService::StartRepeatedExecution() { call("StartRepeatedExecution"); }

void RecordingService::StopRepeatedExecution() { call("StopRepeatedExecution"); }

void RecordingService::SetRepetitionTime(const COtxValue& time) {
    call("SetRepetitionTime", time);
    const std::lock_guard guard(resultsLock_);
    repetitionTime_ = time;
}

COtxValue RecordingService::GetRepetitionTime() {
    call("GetRepetitionTime");
    const std::lock_guard guard(resultsLock_);
    return repetitionTime_;
}

void RecordingService::end() {
    std::vector<COtxValue> results;
    std::vector<std::thread> signallers;
    {
        const std::lock_guard guard(resultsLock_);
        results.swap(results_);
        signallers.swap(signallers_);
    }
    // Not in the destructor: a thread that still holds the service would join itself.
    for (std::thread& signaller : signallers) signaller.join();
    source_.EventSource().Close();
}

COtxValue RecordingService::nextResult() {
    if (label() == "no-result") return nothing();
    const std::string result = label() + ".result" + std::to_string(++executions_);
    const auto response = [&](const char* name, OTX::ValueType type = OTX::ValueType::Response) {
        return COtxValue(std::make_shared<RecordingResponse>(recorder(), result + '.' + name, channel_, name, type));
    };
    std::vector<COtxValue> responses;
    if (label() != "no-responses") responses.push_back(response("R1"));
    if (label() == "stranger") responses.push_back(nothing());
    if (label() == "imposter")
        responses.push_back(response("R2", OTX::ValueType::Request));
    else if (label() != "no-responses")
        responses.push_back(response("R2"));
    return COtxValue(std::make_shared<RecordingResult>(recorder(), result, self(), std::move(responses)));
}

}  // namespace documents
