// Lets services pause until they may go on.
#include "PauseSwitch.h"

namespace filehash {

void PauseSwitch::set(bool isPaused) {
    {
        const std::lock_guard guard(pauseLock_);
        isPaused_ = isPaused;
    }
    changed_.notify_all();
}

void PauseSwitch::pass(const std::stop_token& terminated) {
    std::unique_lock guard(pauseLock_);
    changed_.wait(guard, terminated, [this] { return !isPaused_; });
}

}  // namespace filehash
