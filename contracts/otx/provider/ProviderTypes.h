// The types of service providers that a process knows.
#pragma once

#include <otx/Export.h>
#include <otx/value/COtxValue.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace ExternalServiceProvider {

class HostInterface;

// Makes a provider: gives a value of type ServiceProvider, whose class the author writes or has made by MakeProvider
// (Provider.h). Called on the lane's thread, by several lanes at once. A COtxException that it throws reaches the sequence
// as it is; anything else reaches it as kind 21 (ProviderException) with the text. A constructor name that it doesn't know
// is to be refused with kind 21.
using ProviderMaker =
    std::function<COtxValue(const std::shared_ptr<HostInterface>& host, const std::string& constructorName,
                            const std::map<std::string, COtxValue>& arguments)>;

// Makes a type known to all Sequencers of the process, under the text that stands in a document as providerType. It goes
// ahead of a plug-in of that name. Any thread. Throws kind 24 (ConfigurationException) for an empty name, an empty maker,
// and a type that is registered already.
OTX_API void RegisterProviderType(const std::string& providerType, ProviderMaker maker);

// Takes a registered type back; its providers live on. False for a type that isn't registered. Any thread.
OTX_API bool UnregisterProviderType(const std::string& providerType);

// The folder where plug-ins stand, for all Sequencers of the process: the one of type "X" is the file "X.so" in it
// (ProviderPlugin.h). Empty for none, which is how a process begins. Nothing is opened before a document asks for a type; a
// relative name counts from the current folder of that moment. Any thread.
//
// A plug-in runs in the process with all its rights: name only folders that nobody else may write to.
OTX_API void SetProviderFolder(const std::string& folder);

}  // namespace ExternalServiceProvider
