// A link to control units of a simulated vehicle.
#pragma once

#include <transport/Transport.h>
#include <vehicle/SimulatedVehicle.h>

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

namespace velkotx::host {

// Answers are queued when their request is sent, each with the time at which it is complete.
class SimulatedLink : public Link {
public:
    // `target` is nullptr for the link of a group: then all requests are functional.
    SimulatedLink(std::shared_ptr<SimulatedVehicle> vehicle, SimulatedControlUnit* target, Listeners listeners);

    void send(std::span<const std::uint8_t> request, bool functional) override;
    std::optional<ReceivedPdu> receive(Clock::Time until) override;
    void close() override;

private:
    void queue(const std::string& controlUnit, std::vector<TimedAnswer> answers);

    const std::shared_ptr<SimulatedVehicle> vehicle_;
    SimulatedControlUnit* const target_;
    const Listeners listeners_;

    std::mutex queueLock_;  // no other lock but the clock's is taken under it
    std::condition_variable queueChanged_;
    std::deque<ReceivedPdu> queue_;  // guarded by queueLock_; in the order of their times
    bool closed_ = false;            // guarded by queueLock_
};

}  // namespace velkotx::host
