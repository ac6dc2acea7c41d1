// The host's objects and data in the context, and their failures when the host gave none.
#include <OTXContext/OtxContext.h>
#include <OTXExternalServiceProvider/HostServiceInterface.h>
#include <OTXHMIIF/HMI.h>
#include <otx/provider/ServiceProviderFactory.h>
#include <velkotx/Exceptions.h>

#include <utility>

namespace otxns {

namespace {

// What the pointer points to, or the failure.
template <class Pointer>
auto& required(const Pointer& object, const char* failure) {
    if (object == nullptr) throw velkotx::OTXRuntimeException(failure, "");
    return *object;
}

}  // namespace

void OtxContext::SetHost(std::weak_ptr<velkotx::HostEventSink> sink) {
    // The old screens are silent before anybody can know of the new host.
    if (OTX::HMI* const replaced = hmi) replaced->endAll();
    host = std::move(sink);
    hmi = hmis.emplace_back(std::make_unique<OTX::HMI>(*this, host)).get();
    hostService = std::make_shared<ExternalServiceProvider::HostServiceInterface>(host);
}

void OtxContext::EndScreens() {
    for (const auto& one : hmis) one->endAll();
}

void OtxContext::SetDiagCom(std::shared_ptr<DiagComHost> object) {
    diagCom = std::move(object);
}

void OtxContext::SetFlash(std::shared_ptr<FlashHost> object) {
    flash = std::move(object);
}

void OtxContext::SetPersistence(std::shared_ptr<PersistenceHost> object) {
    persistence = std::move(object);
}

void OtxContext::SetFileStore(std::shared_ptr<HvtFileStore> object) {
    fileStore = std::move(object);
}

void OtxContext::SetComInterface(std::shared_ptr<ComInterfaceHost> object) {
    comInterface = std::move(object);
}

void OtxContext::SetContextVariables(const COtxValue& values) {
    contextVariables = values;
}

void OtxContext::SetTranslations(const COtxValue& texts) {
    translations = texts;
}

OTX::HMI& OtxContext::HMI() const {
    return required(hmi.load(), "HMI not initialised");
}

DiagComHost& OtxContext::DiagCom() const {
    return required(diagCom, "DiagCom not initialised");
}

FlashHost& OtxContext::Flash() const {
    return required(flash, "Flash not initialised");
}

ComInterfaceHost& OtxContext::ComInterface() const {
    return required(comInterface, "ComInterface not initialised");
}

PersistenceHost& OtxContext::Persistence() const {
    return required(persistence, "Persistence not initialised");
}

HvtFileStore& OtxContext::FileStore() const {
    return required(fileStore, "File store not initialised");
}

std::shared_ptr<ExternalServiceProvider::HostServiceInterface> OtxContext::HostService() const {
    required(hostService, "Host Service interface not initialised");
    return hostService;
}

ExternalServiceProvider::ServiceProviderFactory& OtxContext::ServiceProviderFactory() {
    const std::lock_guard guard(factoryLock);
    if (serviceProviderFactory == nullptr) serviceProviderFactory = ExternalServiceProvider::GetServiceProviderFactory();
    return *serviceProviderFactory;
}

std::shared_ptr<velkotx::HostEventSink> OtxContext::Host() const {
    auto sink = host.lock();
    required(sink, "Host not available.");
    return sink;
}

COtxValue OtxContext::Translate(const COtxValue& key) const {
    if (translations.Type() != OTX::ValueType::Map) return key;
    const auto& texts = translations.Map();
    const auto found = texts.find(key);
    return found != texts.end() ? found->second : key;
}

}  // namespace otxns
