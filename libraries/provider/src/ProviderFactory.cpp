// The factory of one Sequencer.
#include <otx/provider/HostInterface.h>
#include <otx/provider/ServiceProviderFactory.h>
#include <otx/value/COtxException.h>

#include <mutex>
#include <vector>

#include "Plugin.h"
#include "ProviderTypes.h"
#include "Stated.h"

namespace ExternalServiceProvider {

namespace {

[[noreturn]] void refuse(const std::string& text) { throw COtxException(OTX::Exceptions_e::ProviderException, text); }

ProviderMaker makerOf(const std::string& type) {
    const otx::ProviderTypes& types = otx::ProviderTypes::instance();
    if (ProviderMaker registered = types.find(type)) return registered;
    const std::string unknown = "Unknown provider type '" + type + "': it isn't registered, and ";
    const std::string folder = types.folder();
    if (folder.empty()) refuse(unknown + "no folder of plug-ins is named");
    const std::string file = otx::pluginFile(folder, type);
    if (file.empty()) refuse(unknown + "no plug-in can have its name");
    if (ProviderMaker loaded = otx::loadPlugin(file, type)) return loaded;
    refuse(unknown + "there is no plug-in '" + file + "'");
}

class Factory final : public ServiceProviderFactory {
public:
    COtxValue Create(std::shared_ptr<HostInterface> host, const std::string& providerType,
                     const std::string& constructorName, const std::map<std::string, COtxValue>& arguments) override {
        const ProviderMaker make = makerOf(providerType);
        const std::string subject = "Provider type '" + providerType + "'";
        COtxValue made = otx::stated(OTX::Exceptions_e::ProviderException, subject,
                                     [&] { return make(host, constructorName, arguments); });
        if (made.Type() != OTX::ValueType::ServiceProvider)
            refuse(subject + ": made a value of type " + made.stringType() + ", which is no provider");
        remember(providerType, made);
        return made;
    }

    // Disposed ones count: the provider itself refuses the event.
    COtxValue Get(const std::string& providerType, const std::string&, const std::map<std::string, COtxValue>&) override {
        const std::lock_guard guard(madeLock_);
        if (const auto found = made_.find(providerType); found != made_.end()) {
            for (auto one = found->second.rbegin(); one != found->second.rend(); ++one)
                if (auto living = one->lock()) return COtxValue(std::move(living));
        }
        refuse("No provider of type '" + providerType + "' has been created");
    }

private:
    using Instances = std::vector<std::weak_ptr<COtxValueBehaviour>>;

    void remember(const std::string& type, const COtxValue& provider) {
        const std::lock_guard guard(madeLock_);
        Instances& instances = made_[type];
        std::erase_if(instances, [](const auto& instance) { return instance.expired(); });
        instances.emplace_back(provider.GetBehaviourReference());
    }

    // Guards made_.
    std::mutex madeLock_;
    // In the order of their making.
    std::map<std::string, Instances> made_;
};

}  // namespace

std::unique_ptr<ServiceProviderFactory> GetServiceProviderFactory() { return std::make_unique<Factory>(); }

}  // namespace ExternalServiceProvider
