// How a run, or the attempt to load its document, ended.
#pragma once

#include <otx/value/COtxValue.h>

#include <cstddef>
#include <string>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

struct Outcome {
    enum class Kind { finished, exception, failed, cancelled, unloadable };

    Kind kind = Kind::finished;
    COtxValue out;     // finished: the map of the out parameters
    std::string what;  // all others: the failure's name or words
    std::string text;  // exception and failed: what else it says, may be empty

    // unloadable: where in the document, from 1, 0 where nobody knows; what may help a person, may be empty
    std::size_t line = 0;
    std::size_t column = 0;
    std::string hint{};
};

// "finished", "exception", "failed", "cancelled", "unloadable".
const char* nameOf(Outcome::Kind kind);

// The exit status of the program for it.
int exitStatus(Outcome::Kind kind);

// The outcome as one JSON object, without a line break.
std::string toJson(const Outcome& outcome);

// Runs the procedure, from a stop at its first node if that is asked for; whatever ends the run becomes its outcome. Lets
// only the cancellation of the thread pass.
Outcome runProcedure(Sequencer& sequencer, const std::string& procedure, const COtxValue& arguments,
                     bool startStopped = false);

}  // namespace velkotx::host
