// The values that outlive a run.
#include "program/RunPersistence.h"

#include "program/Options.h"
#include "program/UsageError.h"

#include <persistence/SqlitePersistence.h>

#include <velkotx/Sequencer.h>

namespace velkotx::host {

RunPersistence::RunPersistence(const SetUpOptions& options) {
    const std::string& file = options.persistenceFile;
    if (file.empty())
        return;
    if (file == "-")
        throw UsageError("--persist: a file is needed, values can't be kept in a stream");
    try {
        store_ = std::make_shared<SqlitePersistence>(file);
    } catch (const std::runtime_error& failure) {
        throw UsageError(file + ": " + failure.what());
    }
}

void RunPersistence::apply(Sequencer& sequencer) const {
    if (store_)
        sequencer.SetPersistence(store_);
}

}  // namespace velkotx::host
