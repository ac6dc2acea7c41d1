// A plug-in that fits. Its services have nothing to do.
#include <otx/provider/Provider.h>
#include <otx/provider/ProviderPlugin.h>

#include <stdexcept>

namespace {

using namespace ExternalServiceProvider;

class Idle final : public Provider {
public:
    ServiceWork Execute(const std::string& service, const ProviderArguments&, const ProviderVariables&) override {
        if (service != "Idle") RefuseService("Fitting", service);
        return [](const std::stop_token&) {};
    }
};

COtxValue make(const std::shared_ptr<HostInterface>&, const std::string& constructorName,
               const std::map<std::string, COtxValue>&) {
    if (constructorName == "Failing") throw std::runtime_error("no licence");
    if (!constructorName.empty()) RefuseConstructor("Fitting", constructorName);
    return MakeProvider(std::make_shared<Idle>());
}

}  // namespace

OTX_PROVIDER_PLUGIN("Fitting", make);
