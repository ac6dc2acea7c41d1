// The time of a vehicle and of the channels to it: the machine's own, or one that a test drives by hand.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

namespace velkotx::host {

// Any thread. Times count from the clock's beginning.
class Clock {
public:
    using Duration = std::chrono::microseconds;
    using Time = std::chrono::microseconds;

    virtual ~Clock() = default;

    virtual Time now() const = 0;
    // Waits on the condition, whose mutex the lock holds, until `done` answers true or the time has come; gives the last
    // answer. A clock that is driven by hand wakes whoever waits here when it is moved.
    virtual bool waitUntil(std::unique_lock<std::mutex>& lock, std::condition_variable& changed, Time until,
                           const std::function<bool()>& done) = 0;
};

}  // namespace velkotx::host
