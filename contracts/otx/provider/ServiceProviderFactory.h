// Where the sequencer gets its service providers from.
#pragma once

#include <otx/Export.h>
#include <otx/value/COtxValue.h>

#include <map>
#include <memory>
#include <string>

namespace ExternalServiceProvider {

class HostInterface;

// One for each Sequencer, which owns it as long as it lives. Any thread may call it, several at once. Failures are
// COtxExceptions of kinds 21 (ProviderException) and 24 (ConfigurationException), beside those of the providers. The order of
// the operations is part of the contract.
class OTX_API ServiceProviderFactory {
public:
    virtual ~ServiceProviderFactory() = default;
    // Makes a provider of the type: a value of type ServiceProvider. The constructor's name may be empty. A registered type
    // (ProviderTypes.h) goes ahead of a plug-in. Throws kind 21 for a type that is neither, and for what a maker throws that
    // isn't an OTX exception; kind 24 for a plug-in that doesn't fit.
    virtual COtxValue Create(std::shared_ptr<HostInterface> host, const std::string& providerType,
                             const std::string& constructorName, const std::map<std::string, COtxValue>& arguments) = 0;
    // The provider of the type that this factory made last, of those that live; disposed ones count. Nothing is made here:
    // without one it throws kind 21. The constructor's name and the arguments aren't looked at. The sequencer asks with an
    // empty name and without arguments.
    virtual COtxValue Get(const std::string& providerType, const std::string& constructorName,
                          const std::map<std::string, COtxValue>& arguments) = 0;
};

// A factory that has made no provider yet. It keeps none alive.
OTX_API std::unique_ptr<ServiceProviderFactory> GetServiceProviderFactory();

}  // namespace ExternalServiceProvider
