// The folder of plug-ins and the working folder of a document that asks for them.
#include "Surroundings.h"

#include <otx/provider/ProviderTypes.h>

#include <system_error>

namespace documents {

Surroundings::Surroundings(const Script& script) : before_(std::filesystem::current_path()) {
    if (!script.workingFolder.empty()) std::filesystem::current_path(script.workingFolder);
    if (script.withPlugIns) ExternalServiceProvider::SetProviderFolder(DOCUMENTS_PLUG_INS);
}

Surroundings::~Surroundings() {
    ExternalServiceProvider::SetProviderFolder("");
    std::error_code ignored;  // the folder was there
    std::filesystem::current_path(before_, ignored);
}

}  // namespace documents
