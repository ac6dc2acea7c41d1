// The folder of plug-ins that the user names.
#pragma once

#include <string>

namespace velkotx::host {

// Names the folder to the process; empty where the user named none. Throws UsageError for one that isn't there.
void useProviderFolder(const std::string& folder);

}  // namespace velkotx::host
