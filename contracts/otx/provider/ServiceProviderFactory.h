// Where the sequencer gets its service providers from.
#pragma once

#include <otx/Export.h>
#include <otx/value/COtxValue.h>

#include <map>
#include <memory>
#include <string>

namespace ExternalServiceProvider {

class HostInterface;

// One for each Sequencer, which owns it as long as it lives. Any thread may call it. Failures are COtxExceptions, kinds 21
// (ProviderException) and 24 (ConfigurationException), beside those of the providers. The order of the operations is part of
// the contract.
class OTX_API ServiceProviderFactory {
public:
    virtual ~ServiceProviderFactory() = default;
    // Makes a provider of the type: a value of type ServiceProvider. The constructor's name may be empty.
    virtual COtxValue Create(std::shared_ptr<HostInterface> host, const std::string& providerType,
                             const std::string& constructorName, const std::map<std::string, COtxValue>& arguments) = 0;
    // The provider of the type that is there. The sequencer asks with an empty constructor name and without arguments.
    virtual COtxValue Get(const std::string& providerType, const std::string& constructorName,
                          const std::map<std::string, COtxValue>& arguments) = 0;
};

// A factory that knows no provider yet; each has providers of its own.
OTX_API std::unique_ptr<ServiceProviderFactory> GetServiceProviderFactory();

}  // namespace ExternalServiceProvider
