// Waiting for what can only be asked for.
#pragma once

#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

namespace api {

// Against a hang only: what a test waits for takes milliseconds.
inline constexpr std::chrono::minutes longestWait{1};

// Asks again and again; false when the answer is still no at the end of the longest wait.
template <class Condition>
bool isReached(const Condition& condition) {
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::yield();
    }
    return true;
}

template <class Condition>
void waitUntil(const std::string& what, const Condition& condition) {
    if (!isReached(condition)) throw std::runtime_error("not reached: " + what);
}

}  // namespace api
