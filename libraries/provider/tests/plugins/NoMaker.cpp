// A plug-in that makes nothing.
#include <otx/provider/ProviderPlugin.h>

using ExternalServiceProvider::ProviderPlugin;

extern "C" OTX_API const ProviderPlugin* otxProviderPlugin();
const ProviderPlugin* otxProviderPlugin() {
    static constexpr ProviderPlugin plugin{ExternalServiceProvider::providerPluginVersion, "NoMaker", nullptr};
    return &plugin;
}
