// A service provider of the recording host.
#include "RecordingProvider.h"

#include "Answers.h"

#include <otx/value/COtxException.h>
#include <otx/value/COtxMap.h>
#include <otx/value/Functions.h>
#include <otx/value/IString.h>
#include <otx/value/OtxVariable.h>

#include <utility>

namespace documents {

namespace {

COtxValue mapOf(const std::map<std::string, COtxValue>& arguments) {
    std::map<const std::string, COtxValue> entries;
    for (const auto& [name, value] : arguments) entries.emplace(name, OTX::DeepCopy(value));
    return COtxMap(entries);
}

COtxValue valuesOf(const RecordingProvider::Variables& variables) {
    std::map<const std::string, COtxValue> entries;
    for (const auto& [name, variable] : variables) entries.emplace(name, OTX::DeepCopy(variable->Value()));
    return COtxMap(entries);
}

}  // namespace

RecordingProvider::RecordingProvider(CallRecorder& recorder, std::string label, Host host)
    : Handle(recorder, std::move(label), OTX::ValueType::ServiceProvider), host_(std::move(host)) {}

COtxValue RecordingProvider::Execute(const std::string& service, const std::map<std::string, COtxValue>& inArguments,
                                     const Variables& inoutArguments, const Variables& outArguments) {
    call("Execute", service, mapOf(inArguments), valuesOf(inoutArguments), valuesOf(outArguments));
    refuseIfDisposed();
    if (service == "nothing") return nothing();
    std::shared_ptr<RecordingProviderService> started;
    {
        const std::lock_guard guard(servicesLock_);
        const std::string name = label() + ".s" + std::to_string(services_.size() + 1);
        started = std::make_shared<RecordingProviderService>(recorder(), name, service, host_);
        services_.push_back(started);
    }
    started->begin(inoutArguments, outArguments);
    return COtxValue(started);
}

void RecordingProvider::Event(const COtxValue& eventType, const COtxValue& message) {
    call("Event", eventType, OTX::DeepCopy(message));
    refuseIfDisposed();
    if (eventType.String() != "ESP-Finish") return;
    std::vector<std::shared_ptr<RecordingProviderService>> services;
    {
        const std::lock_guard guard(servicesLock_);
        services = services_;
    }
    for (const auto& service : services) service->finish();
}

void RecordingProvider::Dispose() {
    call("Dispose");
    refuseIfDisposed();
    const std::lock_guard guard(servicesLock_);
    disposed_ = true;
}

COtxValue RecordingProvider::IsDisposed() {
    call("IsDisposed");
    const std::lock_guard guard(servicesLock_);
    return COtxBool(disposed_);
}

void RecordingProvider::end() {
    for (const auto& service : std::exchange(services_, {})) service->end();
}

void RecordingProvider::refuseIfDisposed() {
    const std::lock_guard guard(servicesLock_);
    if (disposed_) throw COtxException(OTX::Exceptions_e::ProviderDisposedException, label() + " is disposed");
}

}  // namespace documents
