// Running one procedure of a document of bench/programs.
#pragma once

#include <otx/value/Values.h>
#include <velkotx/Sequencer.h>

#include <benchmark/benchmark.h>

#include <fstream>
#include <functional>
#include <memory>
#include <string>

class SilentSink : public velkotx::HostEventSink {
public:
    void sendRequest(const COtxValue&) override {}
};

// Gives the outputs of the last run. `install` gives the sequencer what the document needs beside a sink.
inline COtxValue runProcedure(benchmark::State& state, const std::string& document, const std::string& procedure,
                              long long n, const std::function<void(velkotx::Sequencer&)>& install = {},
                              const std::shared_ptr<velkotx::HostEventSink>& sink = std::make_shared<SilentSink>()) {
    std::ifstream file(std::string(PROGRAMS_FOLDER "/") + document + ".otx");
    const auto sequencer = velkotx::CreateSequencer(file);
    sequencer->SetHost(sink);
    if (install) install(*sequencer);
    const COtxMap arguments(std::map<const std::string, COtxValue>{{"n", COtxInt(n)}});
    COtxValue outputs;
    for (auto _ : state) outputs = sequencer->Run(procedure, arguments, false);
    state.counters["n"] = static_cast<double>(n);
    return outputs;
}
