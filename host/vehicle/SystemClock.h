// The machine's own time.
#pragma once

#include <transport/Clock.h>

namespace velkotx::host {

// Begins at 0 when it is made, and never goes back. Any thread.
class SystemClock : public Clock {
public:
    Time now() const override;
    bool waitUntil(std::unique_lock<std::mutex>& lock, std::condition_variable& changed, Time until,
                   const std::function<bool()>& done) override;

private:
    const std::chrono::steady_clock::time_point beginning_ = std::chrono::steady_clock::now();
};

}  // namespace velkotx::host
