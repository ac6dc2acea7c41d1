// The simulated vehicle that a run talks to.
#include "program/RunVehicle.h"

#include "program/Inputs.h"
#include "program/Options.h"
#include "program/UsageError.h"
#include "program/VehicleFile.h"

#include <diag/PduPrinter.h>
#include <objects/InstallVehicle.h>

namespace velkotx::host {

namespace {

std::string complaint(const std::vector<Mistake>& mistakes, const std::string& file) {
    std::string words = inWords(mistakes.front(), displayName(file));
    if (mistakes.size() > 1)
        words += " (velkotx vehicle check tells this and " + std::to_string(mistakes.size() - 1) + " more)";
    return words;
}

std::shared_ptr<const VehicleDescription> readDescription(Inputs& inputs, const std::string& file) {
    VehicleFile read = readVehicleFile(inputs, file);
    if (!read.mistakes.empty())
        throw UsageError(complaint(read.mistakes, file));
    return std::make_shared<const VehicleDescription>(std::move(read.description));
}

}  // namespace

RunVehicle::RunVehicle(Inputs& inputs, const SetUpOptions& options, std::ostream& traceOut) {
    if (options.vehicleFile.empty()) {
        if (options.tracePdu)
            throw UsageError("--trace-pdu: --vehicle is needed, else there are no PDUs");
        return;
    }
    description_ = readDescription(inputs, options.vehicleFile);
    if (options.tracePdu)
        trace_ = std::make_shared<PduPrinter>(traceOut);
}

void RunVehicle::apply(Sequencer& sequencer) const {
    if (description_)
        installVehicle(sequencer, description_, trace_);
}

}  // namespace velkotx::host
