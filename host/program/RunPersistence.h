// The values that outlive a run.
#pragma once

#include <memory>

class PersistenceHost;

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

struct SetUpOptions;

class RunPersistence {
public:
    // Opens the file of persisted values, if one is named. Throws UsageError for a file that can't be used.
    explicit RunPersistence(const SetUpOptions& options);

    // Installs the store, which all runs share; without a file the Sequencer stays without one.
    void apply(Sequencer& sequencer) const;

private:
    std::shared_ptr<PersistenceHost> store_;
};

}  // namespace velkotx::host
