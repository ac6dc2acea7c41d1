// A plug-in of another version, of which nothing but the version may be read.
#include <otx/provider/ProviderPlugin.h>

using ExternalServiceProvider::ProviderPlugin;

extern "C" OTX_API const ProviderPlugin* otxProviderPlugin();
const ProviderPlugin* otxProviderPlugin() {
    static constexpr std::uint32_t onlyAVersion = 7;
    return reinterpret_cast<const ProviderPlugin*>(&onlyAVersion);
}
