// The messages of a run as they came.
#include "program/script/MessageTypes.h"

#include <algorithm>

namespace velkotx::host {

void MessageTypes::note(const std::string& eventType) {
    const std::lock_guard guard(typesLock_);
    if (closed_)
        return;
    types_.push_back(eventType);
    changed_.notify_all();
}

void MessageTypes::close() {
    const std::lock_guard guard(typesLock_);
    closed_ = true;
    changed_.notify_all();
}

bool MessageTypes::await(const std::string& eventType) {
    std::unique_lock guard(typesLock_);
    for (;;) {
        if (takeUpTo(eventType))
            return true;
        if (closed_)
            return false;
        isAwaited_ = true;
        changed_.wait(guard);
        isAwaited_ = false;
    }
}

bool MessageTypes::isAwaited() {
    const std::lock_guard guard(typesLock_);
    return isAwaited_;
}

bool MessageTypes::takeUpTo(const std::string& eventType) {
    const auto found = std::ranges::find(types_, eventType);
    if (found == types_.end()) {
        types_.clear();
        return false;
    }
    types_.erase(types_.begin(), found + 1);
    return true;
}

}  // namespace velkotx::host
