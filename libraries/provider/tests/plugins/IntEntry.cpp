// A plug-in whose entry point throws something that is no exception.
#include <otx/provider/ProviderPlugin.h>

using ExternalServiceProvider::ProviderPlugin;

extern "C" OTX_API const ProviderPlugin* otxProviderPlugin();
const ProviderPlugin* otxProviderPlugin() {
    throw 42;
}
