// The store of files that a run reads.
#include "program/RunStore.h"

#include "program/Options.h"
#include "program/UsageError.h"

#include <store/FolderFileStore.h>

#include <velkotx/Sequencer.h>

#include <stdexcept>

namespace velkotx::host {

RunStore::RunStore(const SetUpOptions& options) {
    const std::string& folder = options.storeFolder;
    if (folder.empty())
        return;
    try {
        store_ = std::make_shared<FolderFileStore>(folder);
    } catch (const std::runtime_error& failure) {
        throw UsageError(folder + ": " + failure.what());
    }
}

void RunStore::apply(Sequencer& sequencer) const {
    if (store_)
        sequencer.SetFileStore(store_);
}

}  // namespace velkotx::host
