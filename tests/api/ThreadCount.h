// How many threads the process has.
#pragma once

#include "Until.h"

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <thread>

namespace api {

inline std::size_t threadCount() {
    // The thread sanitizer starts a thread of its own with the first one.
    static const bool isCounted = (std::thread([] {}).join(), true);
    static_cast<void>(isCounted);
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

// A thread that has been joined is still listed for a moment.
inline bool isThreadCountReached(std::size_t count) {
    return isReached([&] { return threadCount() <= count; });
}

}  // namespace api
