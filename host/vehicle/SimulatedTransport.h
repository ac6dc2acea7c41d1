// The transport to a simulated vehicle in this process.
#pragma once

#include <transport/Transport.h>
#include <vehicle/VehicleDescription.h>

#include <memory>
#include <string>

namespace velkotx::host {

class SimulatedVehicle;

// A vehicle with its clock. Any thread; several links may be open at once, and meet the same control units. A link is
// opened by the name of a control unit, or of a functional group, where all requests are functional. A functional request
// on the link of a control unit goes to all that share a group with it. A link gives an answer only to who waits at least
// until the answer's time, however late the waiting thread wakes. The vehicle lives as long as one of its links.
class SimulatedTransport : public Transport {
public:
    SimulatedTransport(std::shared_ptr<const VehicleDescription> description, std::shared_ptr<Clock> clock);

    std::unique_ptr<Link> open(const std::string& controlUnit) override;
    Clock& clock() override;

private:
    std::shared_ptr<SimulatedVehicle> vehicle_;
};

}  // namespace velkotx::host
