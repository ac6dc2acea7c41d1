// Which faults of a control unit meet a request.
#pragma once

#include <vehicle/ControlUnitDescription.h>

#include <cstdint>
#include <span>
#include <vector>

namespace velkotx::host {

// Not thread-safe: its control unit guards it.
class FaultInjector {
public:
    explicit FaultInjector(const std::vector<FaultDescription>& faults) : faults_(faults), seen_(faults.size(), 0) {}

    // Counts the request with every fault that it could meet, and gives those that do meet it now, in the file's order.
    std::vector<const FaultDescription*> meet(std::span<const std::uint8_t> request);

private:
    const std::vector<FaultDescription>& faults_;
    std::vector<std::uint64_t> seen_;  // requests of each fault so far
};

}  // namespace velkotx::host
