// Lanes and waits against the bare threads and condition variables under them. All in real time: they are about waiting.
#include "BareWork.h"
#include "Programs.h"

#include <condition_variable>
#include <future>
#include <mutex>

namespace {

constexpr long long counted = 200'000;
constexpr long long started = 500;
constexpr long long woken = 5'000;

void lanes(benchmark::State& state, const std::string& procedure, long long n) {
    runProcedure(state, "lanes", procedure, n);
}

void bareWork(benchmark::State& state) {
    workBare(state, 20'000'000);
}

// One after the other, as the lanes of the procedure `start`.
void bareThreads(benchmark::State& state) {
    for (auto _ : state) {
        long long i = 0;
        for (long long n = 0; n < started; ++n) std::async(std::launch::async, [&i] { ++i; }).wait();
        benchmark::DoNotOptimize(i);
    }
}

struct Place {
    std::mutex lock;
    std::condition_variable changed;
    long long value = 0;

    void put(long long next) {
        {
            const std::lock_guard guard(lock);
            value = next;
        }
        changed.notify_all();
    }
    void await(long long wanted) {
        std::unique_lock guard(lock);
        changed.wait(guard, [&] { return value == wanted; });
    }
};

// There and back, as the lanes of the procedure `wake`.
void bareWakes(benchmark::State& state) {
    for (auto _ : state) {
        Place there;
        Place back;
        const auto other = std::async(std::launch::async, [&] {
            for (long long n = 1; n <= woken; ++n) {
                there.await(n);
                back.put(n);
            }
        });
        for (long long n = 1; n <= woken; ++n) {
            there.put(n);
            back.await(n);
        }
        other.wait();
    }
}

}  // namespace

BENCHMARK_CAPTURE(lanes, one, "one", counted)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(lanes, two, "two", counted)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bareWork)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(lanes, start, "start", started)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bareThreads)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(lanes, wake, "wake", woken)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(bareWakes)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
