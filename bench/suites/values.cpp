// Single operations of the value library beside an uncontended recursive lock.
#include <otx/value/OtxVariable.h>
#include <otx/value/Values.h>

#include <benchmark/benchmark.h>

#include <mutex>

namespace {

void recursiveLock(benchmark::State& state) {
    std::recursive_mutex lock;
    for (auto _ : state) {
        lock.lock();
        benchmark::ClobberMemory();
        lock.unlock();
    }
}

void makeInteger(benchmark::State& state) {
    long long number = 0;
    for (auto _ : state) benchmark::DoNotOptimize(COtxInt(++number));
}

void copyHandle(benchmark::State& state) {
    const COtxValue value = COtxInt(1);
    for (auto _ : state) benchmark::DoNotOptimize(COtxValue(value));
}

void addIntegers(benchmark::State& state) {
    const COtxValue left = COtxInt(1);
    const COtxValue right = COtxInt(2);
    for (auto _ : state) benchmark::DoNotOptimize(left + right);
}

void readCell(benchmark::State& state) {
    const OtxVariable cell{COtxInt(1)};
    for (auto _ : state) benchmark::DoNotOptimize(cell.Value());
}

void writeCell(benchmark::State& state) {
    OtxVariable cell{COtxInt(1)};
    const COtxValue value = COtxInt(2);
    for (auto _ : state) cell.Set(value);
}

void throwException(benchmark::State& state) {
    for (auto _ : state) {
        try {
            throw COtxException(OTX::Exceptions_e::UserException);
        } catch (COtxValue& caught) {
            benchmark::DoNotOptimize(caught);
        }
    }
}

}  // namespace

BENCHMARK(recursiveLock);
BENCHMARK(makeInteger);
BENCHMARK(copyHandle);
BENCHMARK(addIntegers);
BENCHMARK(readCell);
BENCHMARK(writeCell);
BENCHMARK(throwException);

BENCHMARK_MAIN();
