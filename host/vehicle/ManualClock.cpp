// A clock that a test drives by hand.
#include "vehicle/ManualClock.h"

#include <algorithm>

namespace velkotx::host {

Clock::Time ManualClock::now() const {
    const std::lock_guard guard(timeLock_);
    return now_;
}

bool ManualClock::waitUntil(std::unique_lock<std::mutex>& lock, std::condition_variable& changed, Time until,
                            const std::function<bool()>& done) {
    if (done() || now() >= until)
        return done();
    const auto waiter = std::make_shared<Waiter>();
    waiter->mutex = lock.mutex();
    waiter->changed = &changed;
    waiter->until = until;
    add(waiter);
    while (!done() && now() < until)
        changed.wait(lock);
    lock.unlock();
    remove(waiter);
    lock.lock();
    return done();
}

void ManualClock::advance(Duration duration) {
    std::vector<std::shared_ptr<Waiter>> waiters;
    {
        const std::lock_guard guard(timeLock_);
        now_ += duration;
        waiters = waiters_;
    }
    wake(waiters);
}

bool ManualClock::advanceToNextWait() {
    std::vector<std::shared_ptr<Waiter>> waiters;
    {
        const std::lock_guard guard(timeLock_);
        if (waiters_.empty())
            return false;
        const auto earliest = std::min_element(waiters_.begin(), waiters_.end(), [](const auto& one, const auto& other) {
            return one->until < other->until;
        });
        now_ = std::max(now_, (*earliest)->until);
        waiters = waiters_;
    }
    wake(waiters);
    return true;
}

void ManualClock::awaitWaiting(std::size_t threads) {
    std::unique_lock lock(timeLock_);
    waitersChanged_.wait(lock, [&] { return waiters_.size() >= threads; });
}

void ManualClock::add(const std::shared_ptr<Waiter>& waiter) {
    const std::lock_guard guard(timeLock_);
    waiters_.push_back(waiter);
    waitersChanged_.notify_all();
}

void ManualClock::remove(const std::shared_ptr<Waiter>& waiter) {
    {
        const std::lock_guard guard(waiter->useLock);
        waiter->waits = false;
    }
    const std::lock_guard guard(timeLock_);
    std::erase(waiters_, waiter);
}

void ManualClock::wake(const std::vector<std::shared_ptr<Waiter>>& waiters) {
    for (const auto& waiter : waiters) {
        const std::lock_guard use(waiter->useLock);
        if (!waiter->waits)
            continue;
        const std::lock_guard guard(*waiter->mutex);  // the thread is before its look at the time, or waits already
        waiter->changed->notify_all();
    }
}

}  // namespace velkotx::host
