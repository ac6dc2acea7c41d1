// velkotx vehicle check: every mistake of a vehicle file.
#include "program/Commands.h"

#include "program/ExitStatus.h"
#include "program/Inputs.h"
#include "program/VehicleFile.h"
#include "text/OneLine.h"

#include <ostream>

namespace velkotx::host {

namespace {

std::string count(std::size_t number, const std::string& what) {
    return std::to_string(number) + ' ' + what + (number == 1 ? "" : "s");
}

}  // namespace

int checkVehicle(const VehicleCheckOptions& options, const Streams& streams) {
    Inputs inputs(streams.in);
    const VehicleFile file = readVehicleFile(inputs, options.vehicle);
    for (const Mistake& mistake : file.mistakes)
        streams.err << oneLine(inWords(mistake, displayName(options.vehicle))) << '\n';
    if (!file.mistakes.empty())
        return ExitStatus::badInput;
    const VehicleDescription& vehicle = file.description;
    streams.out << oneLine(vehicle.name) << ": " << count(vehicle.controlUnits.size(), "control unit") << ", "
                << count(vehicle.flashSessions.size(), "flash session") << ", "
                << count(vehicle.comInterfaces.size(), "interface") << '\n';
    return ExitStatus::finished;
}

}  // namespace velkotx::host
