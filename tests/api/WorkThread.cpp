// One thread that does jobs in their order.
#include "WorkThread.h"

#include <utility>

namespace api {

WorkThread::WorkThread() : thread_([this] { work(); }) {}

WorkThread::~WorkThread() {
    {
        const std::lock_guard guard(jobsLock_);
        isLast_ = true;
    }
    jobsChanged_.notify_one();
    thread_.join();
}

std::future<std::string> WorkThread::post(Job job) {
    std::packaged_task<std::string()> task(std::move(job));
    auto future = task.get_future();
    {
        const std::lock_guard guard(jobsLock_);
        jobs_.push_back(std::move(task));
    }
    jobsChanged_.notify_one();
    return future;
}

void WorkThread::work() {
    for (;;) {
        std::unique_lock guard(jobsLock_);
        jobsChanged_.wait(guard, [this] { return isLast_ || !jobs_.empty(); });
        if (jobs_.empty()) return;
        auto job = std::move(jobs_.front());
        jobs_.pop_front();
        guard.unlock();
        job();
    }
}

}  // namespace api
