// How many threads the process has.
#pragma once

#include "Until.h"

#include <cstddef>
#include <filesystem>
#include <iterator>

namespace api {

inline std::size_t threadCount() {
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

// A thread that has been joined is still listed for a moment.
inline bool isThreadCountReached(std::size_t count) {
    return isReached([&] { return threadCount() <= count; });
}

}  // namespace api
