// Runs a test on a thread with a stack of a given size.
#pragma once

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <functional>

namespace tests {

inline void onStack(std::size_t bytes, const std::function<void()>& test) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, bytes), 0);
    pthread_t thread{};
    const auto run = [](void* function) -> void* {
        (*static_cast<const std::function<void()>*>(function))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&test)), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    ASSERT_EQ(pthread_attr_destroy(&attributes), 0);
}

// Calls itself until the stack is low; gives the depth.
__attribute__((noinline)) inline std::size_t recurseUntil(const std::function<bool()>& isLow, std::size_t depth = 0) {
    volatile char frame[256];
    frame[0] = static_cast<char>(depth);
    if (isLow()) return depth;
    const std::size_t deepest = recurseUntil(isLow, depth + 1);
    frame[1] = frame[0];
    return deepest;
}

constexpr std::size_t smallStack = 256 * 1024;

// The thread sanitizer's record of open calls is too small for the deepest recursions.
#if defined(__SANITIZE_THREAD__)
constexpr bool deepCallsFit = false;
#else
constexpr bool deepCallsFit = true;
#endif

}  // namespace tests
