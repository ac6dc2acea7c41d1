// Notices that a run can't go on by itself.
#pragma once

#include "rest/ThreadPicture.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace velkotx::host {

// Two equal pictures of rest, one behind the other, are the rest: each is told once, and then it takes two new ones.
class RestDetector {
public:
    bool look(std::optional<ThreadPicture> picture);

private:
    std::optional<ThreadPicture> last_;
};

// While it lives, a thread of its own looks at the threads of the process, a few times each second. Nothing depends on how
// long a look takes or on how often it comes: where all threads wait for each other, nothing will ever change but from the
// outside.
class RestWatch {
public:
    // `rests` is called on the watch's thread. It throws nothing, and doesn't wait for the run.
    explicit RestWatch(std::function<void()> rests);
    ~RestWatch();
    RestWatch(const RestWatch&) = delete;
    RestWatch& operator=(const RestWatch&) = delete;

private:
    void work();

    const std::function<void()> rests_;
    std::mutex overLock_;
    std::condition_variable overChanged_;
    bool isOver_ = false;  // guarded by overLock_
    std::thread thread_;
};

}  // namespace velkotx::host
