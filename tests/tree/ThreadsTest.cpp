// Documents loaded and dropped on several threads at once.
#include "Documents.h"

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <thread>
#include <vector>

namespace tree_tests {
namespace {

TEST(Threads, LoadAtOnce) {
    constexpr int threads = 4;
    constexpr int rounds = 50;
    std::barrier start(threads);
    std::atomic<int> loaded = 0;
    std::vector<std::thread> running;
    for (int t = 0; t < threads; ++t)
        running.emplace_back([&] {
            start.arrive_and_wait();
            for (int i = 0; i < rounds; ++i) {
                if (load(nestedGroups(3))->procedures().present()) ++loaded;
                EXPECT_NE(failure("<?xml version=\"1.0\"?><broken>"), "");
            }
        });
    for (auto& thread : running) thread.join();
    EXPECT_EQ(loaded, threads * rounds);
}

}  // namespace
}  // namespace tree_tests
