// What the runs of a command are given, read from its options.
#pragma once

#include "program/Messages.h"
#include "program/RunPersistence.h"
#include "program/RunStore.h"
#include "program/RunVehicle.h"

#include <otx/value/COtxValue.h>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

class Inputs;
struct SetUpOptions;

class SetUp {
public:
    // Reads the files in the order arguments, context, translations, vehicle, opens that of the persisted values, the folder of
    // files and the file of the messages, and names the folder of plug-ins to the process. Warnings and the trace of PDUs
    // go to the stream, which has to outlive all runs. Throws UsageError.
    SetUp(Inputs& inputs, const SetUpOptions& options, std::ostream& err);

    // A copy for one run: a sequence may change what it is given.
    COtxValue arguments() const;
    // The sink of the messages; lives as long as this object.
    const std::shared_ptr<HostEventSink>& messages() const { return messages_.sink(); }

    // Gives the Sequencer the context variables, the translations, a vehicle of its own, the persisted values and
    // the files.
    void apply(Sequencer& sequencer) const;

private:
    const COtxValue arguments_;
    const COtxValue context_;
    const COtxValue translations_;
    const RunVehicle vehicle_;
    const RunPersistence persistence_;
    const RunStore store_;
    const Messages messages_;
};

}  // namespace velkotx::host
