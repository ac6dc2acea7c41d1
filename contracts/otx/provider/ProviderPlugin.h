// What a plug-in shows to those who load it.
#pragma once

#include <otx/Export.h>
#include <otx/value/COtxValue.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace ExternalServiceProvider {

class HostInterface;

// The version of ProviderPlugin and of all that stands in contracts/otx. It is raised with every change that takes a new
// compilation of the plug-ins.
inline constexpr std::uint32_t providerPluginVersion = 1;

// A plug-in is a shared object that brings providers of one type. It is linked with libVelkOTX.so, built with a compiler of
// the same C++ ABI, named after its type ("X.so"), and has one entry point:
//
//     extern "C" OTX_API const ExternalServiceProvider::ProviderPlugin* otxProviderPlugin();
//
// The entry point may be called by any thread, more than once, by several at once, and always gives the same description.
// The version stands first in every version; nothing else is read of another one. A plug-in that was loaded is never
// unloaded: values, threads and types of it stay good until the process ends. Its services may still run while the process
// exits, so that it should have no static object with a destructor, and no constructor of a static object may throw.
struct ProviderPlugin {
    std::uint32_t version;
    const char* providerType;
    // As a ProviderMaker.
    COtxValue (*make)(const std::shared_ptr<HostInterface>& host, const std::string& constructorName,
                      const std::map<std::string, COtxValue>& arguments);
};

using ProviderPluginEntry = const ProviderPlugin* (*)();
inline constexpr const char* providerPluginEntryName = "otxProviderPlugin";

}  // namespace ExternalServiceProvider

// Writes the entry point. The type is a string literal, the maker a function.
#define OTX_PROVIDER_PLUGIN(providerType, maker)                                                        \
    extern "C" OTX_API const ExternalServiceProvider::ProviderPlugin* otxProviderPlugin();              \
    const ExternalServiceProvider::ProviderPlugin* otxProviderPlugin() {                                \
        static constexpr ExternalServiceProvider::ProviderPlugin plugin{                                \
            ExternalServiceProvider::providerPluginVersion, providerType, maker};                       \
        return &plugin;                                                                                 \
    }                                                                                                   \
    static_assert(true, "takes a semicolon")
