// Which faults of a control unit meet a request.
#include "vehicle/FaultInjector.h"

#include <algorithm>

namespace velkotx::host {

std::vector<const FaultDescription*> FaultInjector::meet(std::span<const std::uint8_t> request) {
    std::vector<const FaultDescription*> met;
    for (std::size_t index = 0; index < faults_.size(); ++index) {
        const FaultDescription& fault = faults_[index];
        const Bytes& head = fault.request;
        if (head.size() > request.size() || !std::equal(head.begin(), head.end(), request.begin()))
            continue;
        const std::uint64_t number = ++seen_[index];
        if (number >= fault.from && (fault.count == 0 || number - fault.from < fault.count))
            met.push_back(&fault);
    }
    return met;
}

}  // namespace velkotx::host
