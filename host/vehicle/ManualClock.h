// A clock that a test drives by hand.
#pragma once

#include <transport/Clock.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace velkotx::host {

// Begins at 0 and moves only when it is told to. Any thread. Whoever moves it must not hold the mutex of a waiting thread.
class ManualClock : public Clock {
public:
    Time now() const override;
    bool waitUntil(std::unique_lock<std::mutex>& lock, std::condition_variable& changed, Time until,
                   const std::function<bool()>& done) override;

    void advance(Duration duration);
    // To the earliest time for which a thread waits; false when none waits.
    bool advanceToNextWait();
    // Blocks until at least so many threads wait.
    void awaitWaiting(std::size_t threads);

private:
    // A thread that waits. It outlives the wait, since the clock may be about to wake it.
    struct Waiter {
        std::mutex useLock;  // taken before *mutex, and never while that is held
        std::mutex* mutex;
        std::condition_variable* changed;
        Time until;
        bool waits = true;  // guarded by useLock
    };

    void add(const std::shared_ptr<Waiter>& waiter);
    void remove(const std::shared_ptr<Waiter>& waiter);
    static void wake(const std::vector<std::shared_ptr<Waiter>>& waiters);

    mutable std::mutex timeLock_;  // the innermost lock
    std::condition_variable waitersChanged_;
    Time now_{0};                                    // guarded by timeLock_
    std::vector<std::shared_ptr<Waiter>> waiters_;  // guarded by timeLock_
};

}  // namespace velkotx::host
