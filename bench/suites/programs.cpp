// Runs the documents of bench/programs, each as one call of Run.
#include <otx/value/Values.h>
#include <velkotx/Sequencer.h>

#include <benchmark/benchmark.h>

#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

class SilentSink : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue&) override {}
};

void runProgram(benchmark::State& state, const std::string& name, long long n) {
    std::ifstream file(std::string(PROGRAMS_FOLDER "/") + name + ".otx");
    const auto sequencer = velkotx::CreateSequencer(file);
    const auto sink = std::make_shared<SilentSink>();
    sequencer->SetHost(sink);
    const COtxMap arguments(std::map<const std::string, COtxValue>{{"n", COtxInt(n)}});
    for (auto _ : state) benchmark::DoNotOptimize(sequencer->Run("main", arguments, false));
    state.counters["n"] = static_cast<double>(n);
}

}  // namespace

BENCHMARK_CAPTURE(runProgram, loop, "loop", 300'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, call, "call", 200'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, list, "list", 200'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, fib, "fib", 22)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, return, "return", 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(runProgram, continue, "continue", 100'000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
