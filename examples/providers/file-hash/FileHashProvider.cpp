// Providers of the type FileHash: digests of files, with progress, pause and an early end.
#include <otx/provider/HostInterface.h>
#include <otx/provider/Provider.h>
#include <otx/provider/ProviderPlugin.h>
#include <otx/value/COtxBool.h>
#include <otx/value/COtxString.h>

#include <utility>

#include "HashJob.h"
#include "PauseSwitch.h"

namespace {

using namespace ExternalServiceProvider;

constexpr const char* type = "FileHash";

class FileHashProvider final : public Provider {
public:
    FileHashProvider(std::shared_ptr<HostInterface> host, std::string algorithm, bool isPaused)
        : host_(std::move(host)), algorithm_(std::move(algorithm)), pause_(isPaused) {}

    ServiceWork Execute(const std::string& service, const ProviderArguments& in,
                        const ProviderVariables& variables) override {
        if (service != "Hash") RefuseService(type, service);
        // The work has to be copyable, the job isn't.
        const auto job = std::make_shared<filehash::HashJob>(algorithm_, in, variables);
        return [this, job](const std::stop_token& terminated) { job->run(terminated, pause_, *host_); };
    }

    void Event(const std::string& eventType, const COtxValue& message) override {
        if (eventType == "ESP-HashPause")
            pause_.set(true);
        else if (eventType == "ESP-HashResume")
            pause_.set(false);
        else
            Provider::Event(eventType, message);
    }

private:
    const std::shared_ptr<HostInterface> host_;
    const std::string algorithm_;
    filehash::PauseSwitch pause_;
};

// The constructor without a name computes SHA-256. The one named Configured takes the algorithm and whether services begin
// paused.
COtxValue make(const std::shared_ptr<HostInterface>& host, const std::string& constructorName,
               const std::map<std::string, COtxValue>& arguments) {
    const ProviderArguments in(arguments, OTX::Exceptions_e::ProviderException);
    if (constructorName.empty())
        in.AllowOnly({});
    else if (constructorName == "Configured")
        in.AllowOnly({"algorithm", "paused"});
    else
        RefuseConstructor(type, constructorName);
    std::string algorithm = in.Optional("algorithm", OTX::ValueType::String, COtxString("SHA256")).String();
    filehash::Digest{algorithm};  // refuses an unknown one here
    const bool isPaused = in.Optional("paused", OTX::ValueType::Boolean, COtxBool(false)).Bool();
    return MakeProvider(std::make_shared<FileHashProvider>(host, std::move(algorithm), isPaused));
}

}  // namespace

OTX_PROVIDER_PLUGIN(type, make);
