// The queue of lines, and the thread that writes them.
#include "LineQueue.h"

#include <pthread.h>
#include <unistd.h>

#include <csignal>
#include <new>
#include <thread>
#include <utility>

namespace Hvt {

namespace {

// A thread begun meanwhile takes no signals, which are the host's; a closed pipe is an error to it and no end of the process.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

private:
    sigset_t before_{};
};

void tellOfLoss(LineFile& target, std::uint64_t count) noexcept {
    try {
        const char* const words = count == 1 ? " line of the log is lost)\n" : " lines of the log are lost)\n";
        target.write('(' + std::to_string(count) + words);
    } catch (const std::bad_alloc&) {
        // The host can still ask for the number.
    }
}

}  // namespace

LineQueue::LineQueue() : target_(std::make_shared<LineFile>()) {}

void LineQueue::setTarget(std::shared_ptr<LineFile> target) {
    // What it replaces is closed after the lock is released.
    const std::lock_guard guard(queueLock_);
    target_.swap(target);
}

void LineQueue::push(std::string line, bool isFailure) {
    line += '\n';
    const std::lock_guard guard(queueLock_);
    makeRoom(line.size());
    bytes_ += line.size();
    entries_.push_back({std::move(line), target_, isFailure});
    ++pushed_;
    if (process_ == 0) startThread();
    hasLines_.notify_one();
}

// A line that is larger than the whole queue may stand in it alone.
void LineQueue::makeRoom(std::size_t size) {
    while (!entries_.empty() &&
           (entries_.size() >= LogOutput::queueLines || bytes_ + size > LogOutput::queueBytes)) {
        bytes_ -= entries_.front().line.size();
        entries_.pop_front();
        ++lost_;
        ++untoldLost_;
    }
}

void LineQueue::startThread() {
    const SignalsBlocked blocked;
    std::thread([this] { work(); }).detach();
    process_ = ::getpid();
}

void LineQueue::work() {
    pthread_setname_np(pthread_self(), "otx-log");
    std::deque<Entry> batch;
    std::unique_lock guard(queueLock_);
    while (true) {
        hasLines_.wait(guard, [&] { return !entries_.empty(); });
        batch.swap(entries_);
        bytes_ = 0;
        const std::uint64_t end = pushed_;
        const std::uint64_t lostBefore = std::exchange(untoldLost_, 0);
        guard.unlock();
        const std::uint64_t failed = writeOut(batch, lostBefore);
        batch.clear();
        guard.lock();
        lost_ += failed;
        done_ = end;
        hasWritten_.notify_all();
    }
}

// Gives the number of lines that couldn't be written.
std::uint64_t LineQueue::writeOut(const std::deque<Entry>& entries, std::uint64_t lostBefore) noexcept {
    std::uint64_t failed = 0;
    if (lostBefore > 0) tellOfLoss(*entries.front().target, lostBefore);
    LineFile* unsynced = nullptr;
    for (const Entry& entry : entries) {
        if (unsynced != nullptr && unsynced != entry.target.get()) std::exchange(unsynced, nullptr)->sync();
        if (!entry.target->write(entry.line)) ++failed;
        ++attempts_;
        if (entry.isFailure) unsynced = entry.target.get();
    }
    if (unsynced != nullptr) unsynced->sync();
    return failed;
}

bool LineQueue::flush(std::chrono::milliseconds atMost) {
    std::unique_lock guard(queueLock_);
    const std::uint64_t end = pushed_;
    return hasWritten_.wait_for(guard, atMost, [&] { return done_ >= end; });
}

void LineQueue::drain(std::chrono::milliseconds patience) {
    if (process_ != ::getpid()) return;
    std::uint64_t before = 0;
    do {
        before = attempts_;
        if (flush(patience)) return;
    } while (attempts_ != before);
}

std::uint64_t LineQueue::lostLines() const {
    const std::lock_guard guard(queueLock_);
    return lost_;
}

}  // namespace Hvt
