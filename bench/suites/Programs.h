// Running one procedure of a document of bench/programs.
#pragma once

#include <otx/value/Values.h>
#include <velkotx/Sequencer.h>

#include <benchmark/benchmark.h>

#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <string>

class SilentSink : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue&) override {}
};

// The arguments hold the number of rounds as "n". `install` gives the sequencer what the document needs beside a sink. Gives the
// outputs of the last run.
inline COtxValue runProcedure(benchmark::State& state, const std::string& document, const std::string& procedure,
                              const std::map<const std::string, COtxValue>& values,
                              const std::function<void(velkotx::Sequencer&)>& install = {},
                              const std::shared_ptr<velkotx::HostEventSink>& sink = std::make_shared<SilentSink>()) {
    std::ifstream file(std::string(PROGRAMS_FOLDER "/") + document + ".otx");
    const auto sequencer = velkotx::CreateSequencer(file);
    sequencer->SetHost(sink);
    if (install) install(*sequencer);
    const COtxMap arguments(values);
    COtxValue outputs;
    for (auto _ : state) outputs = sequencer->Run(procedure, arguments, false);
    state.counters["n"] = static_cast<double>(values.at("n").Int());
    return outputs;
}

inline COtxValue runProcedure(benchmark::State& state, const std::string& document, const std::string& procedure,
                              long long n, const std::function<void(velkotx::Sequencer&)>& install = {},
                              const std::shared_ptr<velkotx::HostEventSink>& sink = std::make_shared<SilentSink>()) {
    return runProcedure(state, document, procedure, {{"n", COtxInt(n)}}, install, sink);
}
