// velkotx debug: a run step by step.
#include "program/Commands.h"

#include "program/Inputs.h"
#include "program/InterruptThread.h"
#include "program/Load.h"
#include "program/Report.h"
#include "program/RunLog.h"
#include "program/SameFiles.h"
#include "program/SetUp.h"
#include "program/debug/Debugger.h"
#include "program/debug/LineReader.h"
#include "rest/HostThread.h"

#include <velkotx/Sequencer.h>

#include <ostream>
#include <sstream>

namespace velkotx::host {

namespace {

int converse(Debugger& debugger, LineReader& reader, const Streams& streams) {
    for (;;) {
        if (reader.isTerminal())
            debugger.reportNews();
        const std::optional<std::string> line = reader.read();
        if (!line && reader.isTerminal())
            streams.out << '\n';
        if (!line || !debugger.obey(*line, reader.isTerminal()))
            return debugger.finish();
    }
}

}  // namespace

int debug(const DebugOptions& options, const Streams& streams) {
    refuseSameFiles(options);
    Inputs inputs(streams.in);
    inputs.takeStandardInput();  // the commands
    startLog(options.log);
    const SetUp setUp(inputs, options, streams.err);
    auto loaded = load(inputs, options.document);
    if (const auto* unloadable = std::get_if<Outcome>(&loaded)) {
        letLogAhead();
        return report(*unloadable, options.document, false, streams);
    }

    // Each run has a Sequencer of its own; the document is compiled once for all.
    auto& sequencer = std::get<std::shared_ptr<Sequencer>>(loaded);
    std::ostringstream compiled;
    sequencer->Save(compiled);
    const std::string document = compiled.str();
    const NodeIndex nodes(*sequencer);
    sequencer.reset();

    const InterruptsBlocked blocked;
    const HostThread registered;  // the runs have threads of their own
    Debugger debugger({options.document, options.procedure, document, nodes, setUp}, streams);
    return converse(debugger, *makeLineReader(streams.in), streams);
}

}  // namespace velkotx::host
