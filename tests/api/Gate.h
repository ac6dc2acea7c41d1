// Where a thread of a test is held until the test lets it go.
#pragma once

#include "Until.h"

#include <condition_variable>
#include <mutex>
#include <stdexcept>

namespace api {

// One or several threads come and wait until it is opened, a minute at most. It stays open.
class Gate {
public:
    void pass() {
        std::unique_lock guard(gateLock_);
        ++arrived_;
        changed_.notify_all();
        if (!changed_.wait_for(guard, longestWait, [this] { return isOpen_; })) throw std::runtime_error("the gate stays shut");
    }
    void awaitArrivals(int count = 1) {
        std::unique_lock guard(gateLock_);
        if (!changed_.wait_for(guard, longestWait, [&] { return arrived_ >= count; })) throw std::runtime_error("nobody comes");
    }
    void open() {
        const std::lock_guard guard(gateLock_);
        isOpen_ = true;
        changed_.notify_all();
    }

private:
    // Guards what follows.
    std::mutex gateLock_;
    std::condition_variable changed_;
    int arrived_ = 0;
    bool isOpen_ = false;
};

}  // namespace api
