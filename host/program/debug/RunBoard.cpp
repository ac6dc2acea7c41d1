// What the debugger knows of a run.
#include "program/debug/RunBoard.h"

#include <algorithm>

namespace velkotx::host {

bool RunBoard::flowStopped(Flow flow, const std::string& node) {
    const std::lock_guard guard(boardLock_);
    const bool isFirst = !counter_.isKnown(flow);
    counter_.stopped(flow);
    nodes_[flow] = node;
    untaken_.insert(flow);
    stoppedSince_.insert(flow);
    if (isFirst)
        newSince_.insert(flow);
    changed_.notify_all();
    return isFirst;
}

void RunBoard::flowEnded(Flow flow) {
    const std::lock_guard guard(boardLock_);
    counter_.ended(flow);
    changed_.notify_all();
}

void RunBoard::runEnded(const Outcome& outcome) {
    const std::lock_guard guard(boardLock_);
    outcome_ = outcome;
    changed_.notify_all();
}

void RunBoard::interrupted() {
    const std::lock_guard guard(boardLock_);
    ++interrupts_;
    changed_.notify_all();
}

bool RunBoard::hasEnded() const {
    const std::lock_guard guard(boardLock_);
    return outcome_.has_value();
}

Outcome RunBoard::outcome() const {
    const std::lock_guard guard(boardLock_);
    return outcome_.value();
}

std::set<RunBoard::Flow> RunBoard::stoppedFlows() const {
    const std::lock_guard guard(boardLock_);
    return counter_.stoppedFlows();
}

bool RunBoard::someFlowWasResumed(std::optional<Flow> flow) const {
    const std::lock_guard guard(boardLock_);
    return std::ranges::any_of(nodes_, [&](const auto& entry) {
        return (!flow || *flow == entry.first) && !isSettled(entry.first);
    });
}

std::string RunBoard::nodeOf(Flow flow) const {
    const std::lock_guard guard(boardLock_);
    const auto found = nodes_.find(flow);
    return found != nodes_.end() ? found->second : std::string();
}

std::vector<RunBoard::Stop> RunBoard::takeStops() {
    const std::lock_guard guard(boardLock_);
    std::vector<Stop> stops;
    for (const Flow flow : untaken_)
        if (counter_.isStopped(flow))
            stops.push_back({flow, nodes_[flow]});
    untaken_.clear();
    return stops;
}

void RunBoard::beginResume() {
    const std::lock_guard guard(boardLock_);
    resumed_.clear();
    stoppedSince_.clear();
    newSince_.clear();
    interrupts_ = 0;
}

void RunBoard::resumed(Flow flow, std::size_t lanes) {
    const std::lock_guard guard(boardLock_);
    counter_.resumed(flow);
    resumed_[flow] = lanes;
}

bool RunBoard::waitForResumed() {
    std::unique_lock guard(boardLock_);
    changed_.wait(guard, [&] {
        return outcome_ || isCalledOff() || anotherHasStopped() || allResumedAreSettled() ||
               (interrupts_ > 0 && canTakeStop());
    });
    return !isCalledOff() || outcome_ || canTakeStop();
}

std::vector<RunBoard::Flow> RunBoard::endedFlows() const {
    const std::lock_guard guard(boardLock_);
    std::vector<Flow> ended;
    for (const auto& [flow, lanes] : resumed_)
        if (counter_.hasEnded(flow))
            ended.push_back(flow);
    return ended;
}

bool RunBoard::waitForStop(std::optional<std::chrono::milliseconds> limit) {
    std::unique_lock guard(boardLock_);
    const auto arrived = [&] { return outcome_ || canTakeStop(); };
    const auto over = [&] { return arrived() || isCalledOff(); };
    if (limit)
        changed_.wait_for(guard, *limit, over);
    else
        changed_.wait(guard, over);
    return arrived();
}

bool RunBoard::waitForEnd() {
    std::unique_lock guard(boardLock_);
    changed_.wait(guard, [&] { return outcome_ || isCalledOff(); });
    return outcome_.has_value();
}

bool RunBoard::waitForEnd(std::chrono::milliseconds limit) {
    std::unique_lock guard(boardLock_);
    return changed_.wait_for(guard, limit, [&] { return outcome_.has_value(); });
}

bool RunBoard::isSettled(Flow flow) const {
    return counter_.isStopped(flow) || counter_.hasEnded(flow);
}

// When all have ended and no flow is stopped, something still runs: the flow that waited for them.
bool RunBoard::allResumedAreSettled() const {
    std::size_t lanes = 0;
    for (const auto& [flow, ownLanes] : resumed_) {
        if (isSettled(flow))
            continue;
        if (ownLanes == 0)
            return false;
        lanes += ownLanes;
    }
    return lanes > 0 ? newSince_.size() >= lanes : !counter_.stoppedFlows().empty();
}

bool RunBoard::anotherHasStopped() const {
    const bool expectsLanes = std::ranges::any_of(resumed_, [](const auto& entry) { return entry.second > 0; });
    return std::ranges::any_of(stoppedSince_, [&](Flow flow) {
        return !resumed_.contains(flow) && !(expectsLanes && newSince_.contains(flow));
    });
}

bool RunBoard::canTakeStop() const {
    return std::ranges::any_of(untaken_, [&](Flow flow) { return counter_.isStopped(flow); });
}

}  // namespace velkotx::host
