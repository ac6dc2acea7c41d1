// The first use of a unit on several threads at once.
#include <atomic>
#include <thread>

#include "Quantities.h"

using namespace tests;

TEST(UnitThread, MayBeFirstUsedOnManyThreads) {
    constexpr int rounds = 200;
    constexpr int threads = 4;
    const double milesPerHour = converted(72, "km/h", "mph");
    for (int round = 0; round < rounds; ++round) {
        const COtxValue speed = quantity(72, "km/h");
        const COtxValue same = quantity(20, "m/s");
        const COtxValue unknown = quantity(1, "widget");
        const COtxValue imperial = COtxUnit("mph");
        std::atomic<int> ready{0};
        std::atomic<int> right{0};
        std::vector<std::thread> running;
        for (int i = 0; i < threads; ++i) {
            running.emplace_back([&] {
                for (++ready; ready < threads;) std::this_thread::yield();
                if (speed == same && OTX_THROWN_KIND(speed + unknown) == unknownUnit &&
                    number(COtxQuantity(speed, imperial, 3)) == milesPerHour && shown(speed + same) == "144.0 km/h")
                    ++right;
            });
        }
        for (std::thread& thread : running) thread.join();
        ASSERT_EQ(right, threads);
    }
}
