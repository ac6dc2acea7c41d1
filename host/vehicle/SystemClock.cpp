// The machine's own time.
#include "vehicle/SystemClock.h"

#include <algorithm>

namespace velkotx::host {

namespace {

// Times behind this one would overflow inside the waits of the standard library.
constexpr Clock::Time endOfTime = std::chrono::hours(24 * 365);

}  // namespace

Clock::Time SystemClock::now() const {
    return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now() - beginning_);
}

bool SystemClock::waitUntil(std::unique_lock<std::mutex>& lock, std::condition_variable& changed, Time until,
                            const std::function<bool()>& done) {
    if (until > endOfTime) {
        changed.wait(lock, done);
        return true;
    }
    return changed.wait_until(lock, beginning_ + until, done);
}

}  // namespace velkotx::host
