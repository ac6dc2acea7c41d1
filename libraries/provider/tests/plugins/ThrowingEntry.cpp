// A plug-in whose entry point throws.
#include <otx/provider/ProviderPlugin.h>

#include <stdexcept>

using ExternalServiceProvider::ProviderPlugin;

extern "C" OTX_API const ProviderPlugin* otxProviderPlugin();
const ProviderPlugin* otxProviderPlugin() {
    throw std::runtime_error("no hardware key");
}
