// What an operator does to the run of a Sequencer.
#pragma once

#include "operator/RunPort.h"

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

// The Sequencer outlives the port.
class SequencerPort : public RunPort {
public:
    explicit SequencerPort(Sequencer& sequencer) : sequencer_(sequencer) {}

    std::optional<std::string> sendEvent(const COtxValue& event) override;
    std::optional<std::string> cancel() override;

private:
    Sequencer& sequencer_;
};

}  // namespace velkotx::host
