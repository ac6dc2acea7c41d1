// The folder of plug-ins that the user names.
#include "program/ProviderFolder.h"

#include "program/UsageError.h"

#include <otx/provider/ProviderTypes.h>

#include <filesystem>
#include <system_error>

namespace velkotx::host {

void useProviderFolder(const std::string& folder) {
    if (folder.empty())
        return;
    std::error_code failure;
    if (!std::filesystem::is_directory(folder, failure))
        throw UsageError(folder + ": " + (failure ? failure.message() : std::string("not a folder")));
    ExternalServiceProvider::SetProviderFolder(folder);
}

}  // namespace velkotx::host
