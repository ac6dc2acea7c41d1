// The store of files that a run reads.
#pragma once

#include <memory>

class HvtFileStore;

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

struct SetUpOptions;

class RunStore {
public:
    // Opens the folder of files, if one is named. Throws UsageError for what is no folder.
    explicit RunStore(const SetUpOptions& options);

    // Installs the store, which all runs share; without a folder the Sequencer stays without one.
    void apply(Sequencer& sequencer) const;

private:
    std::shared_ptr<HvtFileStore> store_;
};

}  // namespace velkotx::host
