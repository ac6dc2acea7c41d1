// Loading and saving through streams that break.
#include "BreakingStream.h"
#include "Document.h"
#include "Parts.h"

#include <cxxabi.h>

#include <istream>
#include <ostream>
#include <sstream>

namespace faults {

namespace {

struct Kind {
    const char* name;
    Break how;
};
constexpr Kind kinds[] = {{"ends", Break::ends}, {"throws", Break::throws}, {"passes-through", Break::passesThrough}};

template <class Work>
std::exception_ptr failureOf(const Work& work) {
    try {
        work();
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

Series loading(const std::string& name, const std::string& document, const Kind& kind) {
    Series series;
    series.name = "stream-load-" + name + "-" + kind.name;
    // Where a whole document ends already: white space may follow.
    const std::size_t end = document.find_last_not_of("\n") + 1;
    series.attempt = [text = document, how = kind.how](std::size_t place) mutable {
        if (place > text.size()) return Attempt();
        BreakingInput buffer(text, place - 1, how);
        std::istream stream(&buffer);
        if (how == Break::passesThrough) stream.exceptions(std::ios_base::badbit);
        Attempt attempt;
        attempt.failure = failureOf([&] { attempt.result = compiledForm(*velkotx::CreateSequencer(stream)); });
        attempt.wasHit = buffer.hasBroken();
        return attempt;
    };
    series.repeat = [document] { return compiledForm(document); };
    const bool isXml = name == "xml";
    series.mayPass = [isXml, end](std::size_t place) { return isXml && place > end; };
    return series;
}

Series saving(const std::shared_ptr<velkotx::Sequencer>& sequencer, const Kind& kind) {
    Series series;
    series.name = std::string("stream-save-") + kind.name;
    series.attempt = [sequencer, how = kind.how](std::size_t place) {
        BreakingOutput buffer(place - 1, how);
        std::ostream stream(&buffer);
        if (how == Break::passesThrough) stream.exceptions(std::ios_base::badbit);
        Attempt attempt;
        attempt.failure = failureOf([&] { sequencer->Save(stream); });
        attempt.wasHit = buffer.hasBroken();
        return attempt;
    };
    series.repeat = [sequencer] { return compiledForm(*sequencer); };
    return series;
}

}  // namespace

std::vector<Series> breakingStreams(const std::string& document) {
    std::vector<Series> all;
    const std::shared_ptr<velkotx::Sequencer> sequencer = load(document);
    const std::string compiled = compiledForm(document);
    for (const Kind& kind : kinds) {
        all.push_back(loading("xml", document, kind));
        all.push_back(loading("compiled", compiled, kind));
        all.push_back(saving(sequencer, kind));
    }
    return all;
}

}  // namespace faults
