// A control unit that answers requests as its description tells: a UDS server, ISO 14229-1.
#pragma once

#include <vehicle/FaultInjector.h>
#include <vehicle/UnitState.h>

#include <cstdint>
#include <mutex>
#include <span>
#include <string>
#include <vector>

namespace velkotx::host {

struct TimedAnswer {
    Bytes bytes;
    Clock::Time due;
};

// Any thread. The description outlives it.
class SimulatedControlUnit {
public:
    explicit SimulatedControlUnit(const ControlUnitDescription& unit);

    const std::string& name() const { return unit_.name; }
    // Takes a request that came at the time, and gives the answers in the order of their due times; none where it is
    // silent. Nothing waits here: what takes its time has a later due time.
    std::vector<TimedAnswer> take(std::span<const std::uint8_t> request, bool functional, Clock::Time now);

private:
    struct Plan;

    std::vector<TimedAnswer> takeLocked(std::span<const std::uint8_t> request, bool functional, Clock::Time now);
    Plan applyFaults(std::span<const std::uint8_t> request);
    std::vector<TimedAnswer> carryOut(const Plan& plan, std::span<const std::uint8_t> request, bool functional,
                                      Clock::Time now);

    const ControlUnitDescription& unit_;
    std::mutex stateLock_;
    UnitState state_;       // guarded by stateLock_
    FaultInjector faults_;  // guarded by stateLock_
};

}  // namespace velkotx::host
