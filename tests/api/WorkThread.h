// One thread that does jobs in their order.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <string>
#include <thread>

namespace api {

// The destructor waits for the jobs that are there.
class WorkThread {
public:
    using Job = std::function<std::string()>;

    WorkThread();
    WorkThread(const WorkThread&) = delete;
    WorkThread& operator=(const WorkThread&) = delete;
    ~WorkThread();

    // The future carries what the job gives or throws.
    std::future<std::string> post(Job job);

private:
    void work();

    // Guards jobs_ and isLast_.
    std::mutex jobsLock_;
    std::condition_variable jobsChanged_;
    std::deque<std::packaged_task<std::string()>> jobs_;
    bool isLast_ = false;
    std::thread thread_;
};

}  // namespace api
