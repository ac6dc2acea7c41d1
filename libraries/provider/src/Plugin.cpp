// Loading a plug-in, and judging whether it fits.
#include "Plugin.h"

#include <dlfcn.h>
#include <otx/provider/ProviderPlugin.h>
#include <otx/value/COtxException.h>

#include <cstring>
#include <filesystem>

#include "Stated.h"

namespace otx {

namespace {

using ExternalServiceProvider::ProviderMaker;
using ExternalServiceProvider::ProviderPlugin;
using ExternalServiceProvider::ProviderPluginEntry;
using OTX::Exceptions_e;

[[noreturn]] void refuse(const std::string& file, const std::string& cause) {
    throw COtxException(Exceptions_e::ConfigurationException, "Plug-in '" + file + "' " + cause);
}

// The loader's words, without the file's name that they often begin with.
std::string loaderCause(const std::string& file) {
    const char* const words = dlerror();
    std::string cause = words != nullptr ? words : "unknown cause";
    if (cause.starts_with(file + ": ")) cause.erase(0, file.size() + 2);
    return cause;
}

ProviderPluginEntry entryOf(const std::string& file) {
    // Never closed, and kept by the loader whoever closes it: its code may stand on stacks and behind values.
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (library == nullptr) refuse(file, "can't be loaded: " + loaderCause(file));
    void* const symbol = dlsym(library, ExternalServiceProvider::providerPluginEntryName);
    if (symbol == nullptr)
        refuse(file, std::string("has no entry point '") + ExternalServiceProvider::providerPluginEntryName + "'");
    return reinterpret_cast<ProviderPluginEntry>(symbol);
}

}  // namespace

std::string pluginFile(const std::string& folder, const std::string& providerType) {
    constexpr std::string_view impossible("/\0", 2);
    if (providerType.empty() || providerType.front() == '.' ||
        providerType.find_first_of(impossible) != std::string::npos)
        return {};
    return (folder.ends_with('/') ? folder : folder + '/') + providerType + ".so";
}

ProviderMaker loadPlugin(const std::string& file, const std::string& providerType) {
    std::error_code failure;
    const auto status = std::filesystem::status(file, failure);
    if (status.type() == std::filesystem::file_type::not_found) return {};
    if (failure) refuse(file, "can't be loaded: " + failure.message());
    if (!std::filesystem::is_regular_file(status)) refuse(file, "can't be loaded: no regular file");

    const ProviderPluginEntry entry = entryOf(file);
    const ProviderPlugin* const plugin =
        stated(Exceptions_e::ConfigurationException, "Plug-in '" + file + "' failed in its entry point", entry);
    if (plugin == nullptr) refuse(file, "gives no description of itself");
    // Nothing else may be there in another version.
    std::uint32_t version = 0;
    std::memcpy(&version, plugin, sizeof version);
    if (version != ExternalServiceProvider::providerPluginVersion)
        refuse(file, "has version " + std::to_string(version) + " of the interface, " +
                         std::to_string(ExternalServiceProvider::providerPluginVersion) + " is needed");
    if (plugin->providerType == nullptr || plugin->make == nullptr)
        refuse(file, "gives an incomplete description of itself");
    if (plugin->providerType != providerType)
        refuse(file, std::string("brings providers of type '") + plugin->providerType + "'");
    return plugin->make;
}

}  // namespace otx
