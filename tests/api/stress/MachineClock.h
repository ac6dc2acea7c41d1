// A clock for limits of time on machines that others use as well.
#pragma once

#include <atomic>
#include <chrono>
#include <thread>

namespace stress {

// Counts the milliseconds in which a thread of this process was let run when it wanted to: where the machine stands still
// for everybody, so does the clock. For any thread.
class MachineClock {
public:
    MachineClock() = default;
    MachineClock(const MachineClock&) = delete;
    MachineClock& operator=(const MachineClock&) = delete;
    ~MachineClock() {
        ends_ = true;
        ticking_.join();
    }

    std::chrono::milliseconds now() const { return std::chrono::milliseconds(ticks_.load()); }

private:
    void tick() {
        for (; !ends_; ++ticks_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    std::atomic<bool> ends_{false};
    std::atomic<long long> ticks_{0};
    std::thread ticking_{&MachineClock::tick, this};
};

}  // namespace stress
