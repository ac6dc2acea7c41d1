// Lets services pause until they may go on.
#pragma once

#include <condition_variable>
#include <mutex>
#include <stop_token>

namespace filehash {

// Any thread.
class PauseSwitch {
public:
    explicit PauseSwitch(bool isPaused) : isPaused_(isPaused) {}

    void set(bool isPaused);
    // Returns when nothing is paused, or when the stop is asked for.
    void pass(const std::stop_token& terminated);

private:
    // Guards isPaused_.
    std::mutex pauseLock_;
    std::condition_variable_any changed_;
    bool isPaused_;
};

}  // namespace filehash
