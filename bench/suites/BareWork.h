// What the machine gives two threads that have nothing to do with each other, beside the lanes.
#pragma once

#include <benchmark/benchmark.h>

#include <thread>
#include <vector>

// The threads of the argument, each with all of the steps.
inline void workBare(benchmark::State& state, long long steps) {
    const auto work = [steps] {
        volatile long long sum = 0;
        for (long long i = 0; i < steps; ++i) sum = sum + i;
    };
    for (auto _ : state) {
        std::vector<std::thread> threads;
        for (int number = 0; number < state.range(0); ++number) threads.emplace_back(work);
        for (auto& thread : threads) thread.join();
    }
}
