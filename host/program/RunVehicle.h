// The simulated vehicle that a run talks to.
#pragma once

#include <iosfwd>
#include <memory>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

class Inputs;
class PduTrace;
struct SetUpOptions;
struct VehicleDescription;

class RunVehicle {
public:
    // Reads the vehicle file, if one is named; PDUs are traced to the stream, if that is asked for, which has to outlive all
    // runs. Throws UsageError for a file with mistakes.
    RunVehicle(Inputs& inputs, const SetUpOptions& options, std::ostream& traceOut);

    // Installs a vehicle that has just been switched on; without a vehicle file the Sequencer stays without one.
    void apply(Sequencer& sequencer) const;

private:
    std::shared_ptr<const VehicleDescription> description_;
    std::shared_ptr<PduTrace> trace_;
};

}  // namespace velkotx::host
