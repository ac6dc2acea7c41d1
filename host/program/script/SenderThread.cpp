// Sends what the rules answer.
#include "program/script/SenderThread.h"

#include "program/script/CommandPort.h"

namespace velkotx::host {

SenderThread::SenderThread(CommandPort& port, std::function<void()> sent, std::function<void()> idle)
    : port_(port), sent_(std::move(sent)), idle_(std::move(idle)) {
    thread_ = std::thread([this] { work(); });
}

SenderThread::~SenderThread() {
    {
        const std::lock_guard guard(queueLock_);
        over_ = true;
        queueChanged_.notify_all();
    }
    thread_.join();
}

void SenderThread::put(const std::vector<HostCommand>& commands, std::chrono::milliseconds delay) {
    const std::lock_guard guard(queueLock_);
    queue_.emplace(Due(Clock::now() + delay, count_++), &commands);
    queueChanged_.notify_all();
}

void SenderThread::nudge() {
    const std::lock_guard guard(queueLock_);
    nudged_ = true;
    queueChanged_.notify_all();
}

void SenderThread::work() {
    std::unique_lock guard(queueLock_);
    while (!over_) {
        if (!queue_.empty() && queue_.begin()->first.first <= Clock::now()) {
            const std::vector<HostCommand>& commands = *queue_.begin()->second;
            queue_.erase(queue_.begin());
            guard.unlock();
            for (const HostCommand& command : commands)
                port_.send(command);
            sent_();
            guard.lock();
            nudged_ = true;
        } else if (!queue_.empty()) {
            queueChanged_.wait_until(guard, queue_.begin()->first.first);
        } else if (nudged_) {
            nudged_ = false;
            guard.unlock();
            idle_();
            guard.lock();
        } else {
            queueChanged_.wait(guard);
        }
    }
}

}  // namespace velkotx::host
