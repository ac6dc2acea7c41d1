// Clocks and curves.
#include <vehicle/Curve.h>
#include <vehicle/ManualClock.h>
#include <vehicle/SystemClock.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace velkotx::host {
namespace {

using std::chrono::milliseconds;

TEST(ManualClocks, MoveWhenTheyAreTold) {
    ManualClock clock;
    EXPECT_EQ(clock.now(), milliseconds(0));
    clock.advance(milliseconds(5));
    EXPECT_EQ(clock.now(), milliseconds(5));
    EXPECT_FALSE(clock.advanceToNextWait());
}

TEST(ManualClocks, WakeEveryThreadAtItsTime) {
    constexpr int threads = 8;
    ManualClock clock;
    std::mutex lock;
    std::condition_variable changed;
    std::vector<Clock::Time> woken;
    std::vector<std::thread> waiting;
    for (int thread = 1; thread <= threads; ++thread)
        waiting.emplace_back([&, thread] {
            std::unique_lock guard(lock);
            EXPECT_FALSE(clock.waitUntil(guard, changed, milliseconds(thread), [] { return false; }));
            woken.push_back(clock.now());
        });
    for (int thread = 1; thread <= threads; ++thread) {
        clock.awaitWaiting(static_cast<std::size_t>(threads - thread + 1));
        EXPECT_TRUE(clock.advanceToNextWait());
        waiting[static_cast<std::size_t>(thread) - 1].join();
    }
    ASSERT_EQ(woken.size(), static_cast<std::size_t>(threads));
    for (int thread = 1; thread <= threads; ++thread)
        EXPECT_EQ(woken[static_cast<std::size_t>(thread) - 1], milliseconds(thread));
}

TEST(ManualClocks, EndAWaitWhenItIsDone) {
    ManualClock clock;
    std::mutex lock;
    std::condition_variable changed;
    bool done = false;
    std::thread waiting([&] {
        std::unique_lock guard(lock);
        EXPECT_TRUE(clock.waitUntil(guard, changed, Clock::Time::max(), [&] { return done; }));
    });
    clock.awaitWaiting(1);
    {
        const std::lock_guard guard(lock);
        done = true;
        changed.notify_all();
    }
    waiting.join();
    EXPECT_EQ(clock.now(), milliseconds(0));
}

// No move is lost, whenever it comes.
TEST(ManualClocks, StandARace) {
    constexpr int rounds = 2000;
    ManualClock clock;
    std::mutex lock;
    std::condition_variable changed;
    std::thread mover([&] {
        for (int round = 0; round < rounds; ++round)
            clock.advance(milliseconds(1));
    });
    for (int round = 1; round <= rounds; ++round) {
        std::unique_lock guard(lock);
        clock.waitUntil(guard, changed, milliseconds(round), [] { return false; });
        EXPECT_GE(clock.now(), milliseconds(round));
    }
    mover.join();
}

TEST(SystemClocks, KeepTheTime) {
    const SystemClock before;
    SystemClock clock;
    std::mutex lock;
    std::condition_variable changed;
    std::unique_lock guard(lock);
    const Clock::Time until = clock.now() + milliseconds(2);
    EXPECT_FALSE(clock.waitUntil(guard, changed, until, [] { return false; }));
    EXPECT_GE(clock.now(), until);
    EXPECT_TRUE(clock.waitUntil(guard, changed, Clock::Time::max(), [] { return true; }));
    EXPECT_GE(before.now(), clock.now());
}

TEST(Curves, LinesStepsAndRepetition) {
    Curve curve{{{milliseconds(10), 1}, {milliseconds(20), 3}, {milliseconds(40), -1}}, false, false};
    EXPECT_DOUBLE_EQ(Curve{}.at(milliseconds(5)), 0);
    EXPECT_DOUBLE_EQ(curve.at(milliseconds(0)), 1);
    EXPECT_DOUBLE_EQ(curve.at(milliseconds(15)), 2);
    EXPECT_DOUBLE_EQ(curve.at(milliseconds(20)), 3);
    EXPECT_DOUBLE_EQ(curve.at(milliseconds(35)), 0);
    EXPECT_DOUBLE_EQ(curve.at(milliseconds(99)), -1);
    curve.steps = true;
    EXPECT_DOUBLE_EQ(curve.at(milliseconds(19)), 1);
    EXPECT_DOUBLE_EQ(curve.at(milliseconds(20)), 3);
    curve.repeats = true;
    EXPECT_DOUBLE_EQ(curve.at(milliseconds(40 + 19)), 1);
    EXPECT_DOUBLE_EQ(curve.at(milliseconds(40 * 7 + 25)), 3);
}

}  // namespace
}  // namespace velkotx::host
