// A plug-in that asks for a symbol that nobody has.
#include <otx/provider/ProviderPlugin.h>

extern "C" int symbolThatNobodyHas();

extern "C" OTX_API const ExternalServiceProvider::ProviderPlugin* otxProviderPlugin();
const ExternalServiceProvider::ProviderPlugin* otxProviderPlugin() {
    symbolThatNobodyHas();
    return nullptr;
}
