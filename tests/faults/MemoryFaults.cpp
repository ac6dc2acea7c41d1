// Loading, saving and running while memory refuses.
#include "Document.h"
#include "Parts.h"

#include <objects/SilentEventSink.h>
#include <otx/value/COtxValue.h>

#include <ostream>
#include <sstream>

namespace faults {

namespace {

// The stream is made before memory refuses: what the stream class itself does with that isn't the question.
Series loading(const std::string& name, const std::string& document, const Refusal& refusal) {
    Series series;
    series.name = "load-" + name + "-" + refusal.name;
    series.attempt = [document, refusal](std::size_t place) {
        std::istringstream stream(document);
        return withoutMemory(place, refusal.extent, [&](std::string& result) {
            const auto sequencer = velkotx::CreateSequencer(stream);
            const SparedMemory memory;  // not for the end of the Sequencer
            result = compiledForm(*sequencer);
        });
    };
    series.repeat = [document] { return compiledForm(document); };
    return series;
}

// Takes all it gets, without memory of its own.
class Sink : public std::streambuf {
protected:
    int_type overflow(int_type character) override { return traits_type::not_eof(character); }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

}  // namespace

std::vector<Series> loadingWithoutMemory(const std::string& document) {
    std::vector<Series> all;
    const std::string compiled = compiledForm(document);
    for (const Refusal& refusal : refusals) {
        all.push_back(loading("xml", document, refusal));
        all.push_back(loading("compiled", compiled, refusal));
    }
    return all;
}

std::vector<Series> savingWithoutMemory(const std::string& document) {
    std::vector<Series> all;
    const std::shared_ptr<velkotx::Sequencer> sequencer = load(document);
    for (const Refusal& refusal : refusals) {
        Series series;
        series.name = std::string("save-") + refusal.name;
        series.attempt = [sequencer, refusal](std::size_t place) {
            Sink sink;
            std::ostream out(&sink);
            return withoutMemory(place, refusal.extent, [&](std::string&) { sequencer->Save(out); });
        };
        series.repeat = [sequencer] { return compiledForm(*sequencer); };
        all.push_back(std::move(series));
    }
    return all;
}

std::vector<Series> runningWithoutMemory(const std::string& document) {
    std::vector<Series> all;
    for (const Refusal& refusal : refusals) {
        const auto host = std::make_shared<velkotx::host::SilentEventSink>();
        // The next run is one of the same sequencer.
        const auto last = std::make_shared<std::shared_ptr<velkotx::Sequencer>>();
        Series series;
        series.name = std::string("run-") + refusal.name;
        series.attempt = [document, refusal, host, last](std::size_t place) {
            const auto sequencer = load(document);
            sequencer->SetHost(host);
            *last = sequencer;
            return withoutMemory(place, refusal.extent, [&](std::string& result) {
                const COtxValue given = sequencer->Run("main", COtxValue(), false);
                const SparedMemory memory;
                result = textOf(given);
            });
        };
        series.repeat = [document, host, last] {
            const auto sequencer = *last ? std::move(*last) : load(document);
            last->reset();
            sequencer->SetHost(host);
            return run(*sequencer);
        };
        // A lost message or trace line doesn't end a run.
        series.mayPass = [](std::size_t) { return true; };
        all.push_back(std::move(series));
    }
    return all;
}

}  // namespace faults
