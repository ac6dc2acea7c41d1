// Diagnostic services and a flash download, against the simulated vehicle and against a host that answers from memory.
#include "../hosts/MemoryDiagCom.h"
#include "../hosts/Vehicle.h"
#include "BareWork.h"
#include "Programs.h"

#include <string>

namespace {

constexpr long long services = 2'000;
constexpr long long laneServices = 1'000;
constexpr long long pieceSize = 4'096;

void installMemory(velkotx::Sequencer& sequencer) {
    sequencer.SetDiagCom(std::make_shared<bench::MemoryDiagCom>());
}

void vehicle(benchmark::State& state, const std::string& procedure, long long n) {
    runProcedure(state, "diag", procedure, n, bench::installFourUnits);
}

void memory(benchmark::State& state, const std::string& procedure, long long n) {
    runProcedure(state, "diag", procedure, n, installMemory);
}

void download(benchmark::State& state) {
    const COtxValue outputs = runProcedure(state, "download", "download", pieceSize, bench::installWithUpdate);
    if (outputs.Map().at(COtxString("bytes")).Int() != static_cast<long long>(bench::downloadSize))
        state.SkipWithError("not all bytes were downloaded");
}

void bareWork(benchmark::State& state) {
    workBare(state, 10'000'000);
}

}  // namespace

#define ON_CPU Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime()
#define IN_TIME Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime()
BENCHMARK_CAPTURE(vehicle, bare, "bare", services)->ON_CPU;
BENCHMARK_CAPTURE(vehicle, services, "services", services)->ON_CPU;
BENCHMARK_CAPTURE(vehicle, fresh, "fresh", services)->ON_CPU;
BENCHMARK_CAPTURE(memory, bare, "bare", services)->ON_CPU;
BENCHMARK_CAPTURE(memory, services, "services", services)->ON_CPU;
BENCHMARK_CAPTURE(memory, fresh, "fresh", services)->ON_CPU;
BENCHMARK(download)->IN_TIME;
BENCHMARK_CAPTURE(vehicle, oneLane, "oneLane", laneServices)->IN_TIME;
BENCHMARK_CAPTURE(vehicle, fourLanes, "fourLanes", laneServices / 4)->IN_TIME;
// The loop of 1,000 in each lane, where starting lanes and opening channels counts for less.
BENCHMARK_CAPTURE(vehicle, oneLongLane, "oneLane", 4 * laneServices)->IN_TIME;
BENCHMARK_CAPTURE(vehicle, fourLongLanes, "fourLanes", laneServices)->IN_TIME;
BENCHMARK_CAPTURE(memory, oneLane, "oneLane", laneServices)->IN_TIME;
BENCHMARK_CAPTURE(memory, fourLanes, "fourLanes", laneServices / 4)->IN_TIME;
BENCHMARK(bareWork)->Arg(1)->Arg(2)->IN_TIME;

BENCHMARK_MAIN();
