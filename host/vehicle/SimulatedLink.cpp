// A link to control units of a simulated vehicle.
#include "vehicle/SimulatedLink.h"

#include <algorithm>

namespace velkotx::host {

SimulatedLink::SimulatedLink(std::shared_ptr<SimulatedVehicle> vehicle, SimulatedControlUnit* target, Listeners listeners)
    : vehicle_(std::move(vehicle)), target_(target), listeners_(std::move(listeners)) {}

void SimulatedLink::send(std::span<const std::uint8_t> request, bool functional) {
    {
        const std::lock_guard guard(queueLock_);
        if (closed_)
            throw TransportError("the link is closed");
    }
    const Clock::Time now = vehicle_->clock().now();
    if (!functional && target_ != nullptr) {
        queue(target_->name(), target_->take(request, false, now));
        return;
    }
    for (SimulatedControlUnit* unit : listeners_)
        queue(unit->name(), unit->take(request, true, now));
}

void SimulatedLink::queue(const std::string& controlUnit, std::vector<TimedAnswer> answers) {
    const std::lock_guard guard(queueLock_);
    for (TimedAnswer& answer : answers) {
        const auto place = std::upper_bound(queue_.begin(), queue_.end(), answer.due,
                                            [](Clock::Time due, const ReceivedPdu& other) { return due < other.time; });
        queue_.insert(place, {controlUnit, std::move(answer.bytes), answer.due});
    }
    queueChanged_.notify_all();
}

std::optional<ReceivedPdu> SimulatedLink::receive(Clock::Time until) {
    std::unique_lock lock(queueLock_);
    const Clock& clock = vehicle_->clock();
    while (!closed_) {
        const Clock::Time now = clock.now();
        if (!queue_.empty() && queue_.front().time <= now && queue_.front().time <= until) {
            ReceivedPdu first = std::move(queue_.front());
            queue_.pop_front();
            return first;
        }
        if (now >= until)
            return std::nullopt;
        const std::size_t known = queue_.size();
        const Clock::Time next = queue_.empty() ? until : std::min(until, queue_.front().time);
        vehicle_->clock().waitUntil(lock, queueChanged_, next, [&] { return closed_ || queue_.size() != known; });
    }
    return std::nullopt;
}

void SimulatedLink::close() {
    const std::lock_guard guard(queueLock_);
    closed_ = true;
    queueChanged_.notify_all();
}

}  // namespace velkotx::host
