// Which flows of a run are stopped.
#include "program/StopCounter.h"

#include <algorithm>

namespace velkotx::host {

bool StopCounter::isStopped(Flow flow) const {
    const auto found = flows_.find(flow);
    return found != flows_.end() && found->second.isStopped();
}

bool StopCounter::hasEnded(Flow flow) const {
    const auto found = flows_.find(flow);
    return found != flows_.end() && found->second.ended;
}

std::set<StopCounter::Flow> StopCounter::stoppedFlows() const {
    std::set<Flow> stopped;
    for (const auto& [flow, counts] : flows_)
        if (counts.isStopped())
            stopped.insert(flow);
    return stopped;
}

StopCounter::Flows StopCounter::stops() const {
    Flows stopped;
    for (const auto& [flow, counts] : flows_)
        if (counts.isStopped())
            stopped.emplace(flow, counts.stops);
    return stopped;
}

void StopCounter::resumedFrom(const Flows& before, std::optional<Flow> only) {
    for (auto& [flow, counts] : flows_) {
        if (only && *only != flow)
            continue;
        const auto then = before.find(flow);
        counts.resumes = std::max(counts.resumes, then != before.end() ? then->second : counts.stops);
    }
}

}  // namespace velkotx::host
