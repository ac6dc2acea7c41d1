// Running one procedure of a document of bench/programs.
#pragma once

#include <otx/value/Values.h>
#include <velkotx/Sequencer.h>

#include <benchmark/benchmark.h>

#include <fstream>
#include <map>
#include <memory>
#include <string>

class SilentSink : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue&) override {}
};

// The arguments hold the number of rounds as "n".
inline void runProcedure(benchmark::State& state, const std::string& document, const std::string& procedure,
                         const std::map<const std::string, COtxValue>& values) {
    std::ifstream file(std::string(PROGRAMS_FOLDER "/") + document + ".otx");
    const auto sequencer = velkotx::CreateSequencer(file);
    const auto sink = std::make_shared<SilentSink>();
    sequencer->SetHost(sink);
    const COtxMap arguments(values);
    for (auto _ : state) benchmark::DoNotOptimize(sequencer->Run(procedure, arguments, false));
    state.counters["n"] = static_cast<double>(values.at("n").Int());
}

inline void runProcedure(benchmark::State& state, const std::string& document, const std::string& procedure, long long n) {
    runProcedure(state, document, procedure, {{"n", COtxInt(n)}});
}
