// Plug-ins: shared objects that bring providers of one type.
#pragma once

#include <otx/provider/ProviderTypes.h>

#include <string>

namespace otx {

// The file in the folder that would bring the type; empty for a type that can't be the name of a file.
std::string pluginFile(const std::string& folder, const std::string& providerType);

// The maker of the plug-in in that file; an empty function if there is no such file. Throws kind 24
// (ConfigurationException), with the file's name and the cause, for a plug-in that doesn't fit. Any thread.
ExternalServiceProvider::ProviderMaker loadPlugin(const std::string& file, const std::string& providerType);

}  // namespace otx
