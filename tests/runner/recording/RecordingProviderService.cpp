// A service that a provider of the recording host runs.
#include "RecordingProviderService.h"

#include "Answers.h"

#include <otx/event/COtxSignalEventSource.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <otx/value/OtxVariable.h>

#include <utility>

namespace documents {

RecordingProviderService::RecordingProviderService(CallRecorder& recorder, std::string label, std::string service,
                                                   std::shared_ptr<ExternalServiceProvider::HostInterface> host)
    : Handle(recorder, std::move(label), OTX::ValueType::ServiceProviderService),
      service_(std::move(service)),
      host_(std::move(host)) {}

COtxValue RecordingProviderService::Terminate() {
    call("Terminate");
    const bool wasRunning = !hasFinished();
    finish();
    return COtxBool(wasRunning);
}

COtxValue RecordingProviderService::IsRunning() {
    call("IsRunning");
    return COtxBool(!hasFinished());
}

COtxValue RecordingProviderService::FinishedEventSource() {
    call("FinishedEventSource");
    if (service_ == "no-source") return nothing();
    const COtxSignalEventSource source(service_ == "wrong-event" ? OTX::EventKind::ServiceProvider
                                                                 : OTX::EventKind::ServiceExecutionFinished);
    if (service_ == "closed") source.EventSource().Close();
    {
        const std::lock_guard guard(sourcesLock_);
        if (finished_)
            source.EventSource().Put(COtxString(label()));
        else
            sources_.push_back(source);
    }
    if (service_ == "held")
        host_->sendRequest(COtxMap(std::map<const std::string, COtxValue>{{"eventType", COtxString("ESP-Waiting")},
                                                                          {"service", COtxString(label())}}));
    return source;
}

void RecordingProviderService::begin(const Variables& inout, const Variables& out) {
    if (service_ == "held") return;
    if (service_ == "late") {
        thread_ = std::thread([this, inout, out] {
            write(inout, out);
            finish();
        });
        return;
    }
    if (service_ == "tell")
        host_->sendRequest(COtxMap(std::map<const std::string, COtxValue>{{"eventType", COtxString("ESP-Told")},
                                                                          {"service", COtxString(label())}}));
    write(inout, out);
    finish();
}

void RecordingProviderService::finish() {
    std::vector<COtxValue> sources;
    {
        const std::lock_guard guard(sourcesLock_);
        finished_ = true;
        sources.swap(sources_);
    }
    for (const COtxValue& source : sources) source.EventSource().Put(COtxString(label()));
}

void RecordingProviderService::end() {
    if (thread_.joinable()) thread_.join();
}

void RecordingProviderService::write(const Variables& inout, const Variables& out) const {
    for (const auto& [name, variable] : inout) variable->Set(COtxList(std::vector<COtxValue>{variable->Value()}));
    for (const auto& [name, variable] : out) variable->Set(COtxString(service_ + " " + name));
}

bool RecordingProviderService::hasFinished() {
    const std::lock_guard guard(sourcesLock_);
    return finished_;
}

}  // namespace documents
