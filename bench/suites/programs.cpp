// Runs the documents of bench/programs, each as one call of Run.
#include "Programs.h"

namespace {

void runProgram(benchmark::State& state, const std::string& name, long long n) {
    runProcedure(state, name, "main", n);
}

}  // namespace

BENCHMARK_CAPTURE(runProgram, loop, "loop", 300'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, node, "node", 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, call, "call", 200'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, list, "list", 200'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, fib, "fib", 22)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, return, "return", 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, continue, "continue", 100'000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
