// Running one procedure of a document of bench/programs.
#pragma once

#include <otx/value/Values.h>
#include <velkotx/Sequencer.h>

#include <benchmark/benchmark.h>

#include <fstream>
#include <memory>
#include <string>

class SilentSink : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue&) override {}
};

inline void runProcedure(benchmark::State& state, const std::string& document, const std::string& procedure, long long n,
                         const std::shared_ptr<velkotx::HostEventSink>& sink = std::make_shared<SilentSink>()) {
    std::ifstream file(std::string(PROGRAMS_FOLDER "/") + document + ".otx");
    const auto sequencer = velkotx::CreateSequencer(file);
    sequencer->SetHost(sink);
    const COtxMap arguments(std::map<const std::string, COtxValue>{{"n", COtxInt(n)}});
    for (auto _ : state) benchmark::DoNotOptimize(sequencer->Run(procedure, arguments, false));
    state.counters["n"] = static_cast<double>(n);
}
