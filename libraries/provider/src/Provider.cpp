// The value of a provider that derives from the base.
#include <otx/diag/IServiceProvider.h>
#include <otx/provider/Provider.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxException.h>
#include <otx/value/OtxVariable.h>

#include <atomic>
#include <utility>

#include "ServiceThreads.h"
#include "Stated.h"

namespace ExternalServiceProvider {

namespace {

using OTX::Exceptions_e;

[[noreturn]] void refuseDisposed() {
    throw COtxException(Exceptions_e::ProviderDisposedException, "The provider has been disposed of");
}

class Behaviour final : public COtxValueBehaviour, public OTX::IServiceProvider {
public:
    explicit Behaviour(std::shared_ptr<Provider> provider)
        : COtxValueBehaviour(OTX::ValueType::ServiceProvider), provider_(std::move(provider)) {}

    OTX::IServiceProvider& ServiceProvider() override { return *this; }

    COtxValue Execute(const std::string& service, const std::map<std::string, COtxValue>& inArguments,
                      const ProviderVariables::Cells& inoutArguments, const ProviderVariables::Cells& outArguments) override {
        requireUndisposed();
        ServiceWork work = otx::stated(Exceptions_e::ProviderServiceException, "Service '" + service + "'", [&] {
            return provider_->Execute(service, ProviderArguments(inArguments, Exceptions_e::ExecuteException),
                                      ProviderVariables(inoutArguments, outArguments));
        });
        if (!work) throw COtxException(Exceptions_e::ProviderServiceException, "Service '" + service + "': has no work");
        auto started = threads_.start(std::move(work), provider_);
        // Another lane may have disposed of the provider meanwhile.
        if (started == nullptr) refuseDisposed();
        return otx::makeHandle(std::move(started));
    }

    void Event(const COtxValue& eventType, const COtxValue& message) override {
        requireUndisposed();
        const std::string type = eventType.String();
        otx::stated(Exceptions_e::ProviderServiceException, "Event '" + type + "'", [&] { provider_->Event(type, message); });
    }

    void Dispose() override {
        if (isDisposed_.exchange(true)) refuseDisposed();
        threads_.end();
    }

    COtxValue IsDisposed() override { return COtxBool(isDisposed_.load()); }

private:
    void requireUndisposed() const {
        if (isDisposed_) refuseDisposed();
    }

    const std::shared_ptr<Provider> provider_;
    std::atomic<bool> isDisposed_{false};
    otx::ServiceThreads threads_;
};

}  // namespace

Provider::~Provider() = default;

void Provider::Event(const std::string& eventType, const COtxValue&) {
    throw COtxException(Exceptions_e::ProviderException, "The provider knows no event '" + eventType + "'");
}

COtxValue MakeProvider(std::shared_ptr<Provider> provider) {
    if (provider == nullptr) throw COtxException(Exceptions_e::ProviderException, "A provider is made of nothing");
    return COtxValue(std::make_shared<Behaviour>(std::move(provider)));
}

void RefuseConstructor(const std::string& providerType, const std::string& constructorName) {
    throw COtxException(Exceptions_e::ProviderException,
                        "Provider type '" + providerType + "' has no constructor '" + constructorName + "'");
}

void RefuseService(const std::string& providerType, const std::string& service) {
    throw COtxException(Exceptions_e::ExecuteException,
                        "Provider type '" + providerType + "' has no service '" + service + "'");
}

}  // namespace ExternalServiceProvider
