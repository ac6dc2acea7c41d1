// Sends what the rules answer, in its time, on a thread of its own.
#pragma once

#include "program/script/HostCommand.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace velkotx::host {

class CommandPort;

// Any thread may put in answers, the one that delivers a message too: none waits for the run. What isn't due when the
// object goes is dropped.
class SenderThread {
public:
    // Both are called on the sender's thread: `sent` behind the commands of each put; `idle` after that, and after a
    // nudge, whenever nothing is left to be sent. They throw nothing.
    SenderThread(CommandPort& port, std::function<void()> sent, std::function<void()> idle);
    ~SenderThread();

    SenderThread(const SenderThread&) = delete;
    SenderThread& operator=(const SenderThread&) = delete;

    // Sends the commands in their order after the delay; those due at the same time in the order in which they came. The
    // commands have to outlive the thread.
    void put(const std::vector<HostCommand>& commands, std::chrono::milliseconds delay);
    // Something happened that `idle` should look at.
    void nudge();

private:
    using Clock = std::chrono::steady_clock;
    using Due = std::pair<Clock::time_point, std::uint64_t>;

    void work();

    CommandPort& port_;
    const std::function<void()> sent_;
    const std::function<void()> idle_;

    std::mutex queueLock_;
    std::condition_variable queueChanged_;
    // Guarded by queueLock_.
    std::map<Due, const std::vector<HostCommand>*> queue_;
    std::uint64_t count_ = 0;
    bool nudged_ = false;
    bool over_ = false;

    std::thread thread_;
};

}  // namespace velkotx::host
