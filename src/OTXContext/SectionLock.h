// The lock of all MutexGroup statements.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>

namespace otxns {

// Recursive, and a wait for it can be given up: the holder may be blocked for as long as the one who waits for the lock
// runs, such as the parent of a Parallel whose lane wants to enter.
class SectionLock {
public:
    // False if the lock can't be had now and `givesUp` says so, which is asked again after each wakeAll().
    template <class GivesUp>
    bool lock(GivesUp givesUp) {
        const auto self = std::this_thread::get_id();
        std::unique_lock guard(stateLock_);
        const auto isFree = [&] { return depth_ == 0 || owner_ == self; };
        changed_.wait(guard, [&] { return isFree() || givesUp(); });
        if (!isFree()) return false;
        owner_ = self;
        ++depth_;
        return true;
    }
    void unlock() {
        const std::lock_guard guard(stateLock_);
        if (--depth_ > 0) return;
        owner_ = {};
        changed_.notify_one();
    }
    void wakeAll() {
        const std::lock_guard guard(stateLock_);
        changed_.notify_all();
    }

private:
    // Guards the two below. Nothing else is locked meanwhile.
    std::mutex stateLock_;
    std::condition_variable changed_;
    std::thread::id owner_;
    std::size_t depth_ = 0;
};

}  // namespace otxns
