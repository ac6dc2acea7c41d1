// A plug-in in a file that is named after another type.
#include <otx/provider/ProviderPlugin.h>

using ExternalServiceProvider::ProviderPlugin;

extern "C" OTX_API const ProviderPlugin* otxProviderPlugin();
const ProviderPlugin* otxProviderPlugin() {
    static constexpr ProviderPlugin plugin{
        ExternalServiceProvider::providerPluginVersion, "Original",
        [](const auto&, const std::string&, const std::map<std::string, COtxValue>&) { return COtxValue(); }};
    return &plugin;
}
