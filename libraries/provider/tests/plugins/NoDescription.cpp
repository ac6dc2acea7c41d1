// A plug-in without a description.
#include <otx/provider/ProviderPlugin.h>

using ExternalServiceProvider::ProviderPlugin;

extern "C" OTX_API const ProviderPlugin* otxProviderPlugin();
const ProviderPlugin* otxProviderPlugin() {
    return nullptr;
}
