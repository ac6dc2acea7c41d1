// The queue between those who log and the thread that writes.
#pragma once

#include "LineFile.h"

#include <sys/types.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>

namespace Hvt {

// Any thread. Its thread never ends, so it must not be destroyed once a line was pushed.
class LineQueue {
public:
    LineQueue();
    LineQueue(const LineQueue&) = delete;
    LineQueue& operator=(const LineQueue&) = delete;

    // Where the lines that follow go.
    void setTarget(std::shared_ptr<LineFile> target);

    // Puts the line at the end and takes the oldest away while there is no room. Throws std::system_error when there is no
    // thread yet and none can be had; the line waits in the queue then.
    void push(std::string line, bool isFailure);

    bool flush(std::chrono::milliseconds atMost);
    // Waits like flush for as long as something is written in each such time. Returns at once in a forked child, which has
    // no thread to wait for.
    void drain(std::chrono::milliseconds patience);

    std::uint64_t lostLines() const;

private:
    struct Entry {
        std::string line;
        std::shared_ptr<LineFile> target;
        bool isFailure;
    };

    void makeRoom(std::size_t size);
    void startThread();
    void work();
    std::uint64_t writeOut(const std::deque<Entry>& entries, std::uint64_t lostBefore) noexcept;

    // Guards all below. A leaf: nothing is written or opened under it.
    mutable std::mutex queueLock_;
    std::condition_variable hasLines_;
    std::condition_variable hasWritten_;
    std::deque<Entry> entries_;
    std::size_t bytes_ = 0;            // of the lines in entries_
    std::uint64_t pushed_ = 0;         // lines, ever
    std::uint64_t done_ = 0;           // those before this number are written or lost
    std::uint64_t lost_ = 0;           // lines, ever
    std::uint64_t untoldLost_ = 0;     // those that left a full queue and no line tells of yet
    std::shared_ptr<LineFile> target_;
    std::atomic<pid_t> process_{0};    // in which the thread runs; 0 before there is one

    std::atomic<std::uint64_t> attempts_{0};  // lines that the thread has worked on
};

}  // namespace Hvt
