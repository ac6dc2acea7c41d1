// velkotx run: a host of one run.
#include "program/Commands.h"

#include "program/Breakpoints.h"
#include "program/Inputs.h"
#include "program/InterruptWatcher.h"
#include "program/Load.h"
#include "program/Report.h"
#include "program/RunLog.h"
#include "program/SetUp.h"
#include "program/UsageError.h"
#include "program/script/InterruptibleLines.h"
#include "program/script/ScriptedHost.h"

#include <velkotx/Sequencer.h>

#include <optional>

namespace velkotx::host {

namespace {

bool isScripted(const RunOptions& options) {
    return !options.controlFile.empty() || !options.answersFile.empty();
}

void requireScriptForStops(const RunOptions& options) {
    if (isScripted(options))
        return;
    const char* const stops = options.startStopped ? "--start-stopped" : "--break";
    if (options.startStopped || !options.breakpoints.empty())
        throw UsageError(std::string(stops) + ": --control or --answers is needed, else nobody resumes the run");
}

void setBreakpoints(Sequencer& sequencer, const std::vector<std::string>& ids) {
    if (!ids.empty())
        sequencer.Control("setbp", breakpointParameters(ids));
}

Outcome runToEnd(Sequencer& sequencer, const RunOptions& options, const SetUp& setUp) {
    const InterruptWatcher watcher(sequencer);
    Outcome outcome = runProcedure(sequencer, options.procedure, setUp.arguments(), options.startStopped);
    letLogAhead();
    return outcome;
}

Outcome runToEnd(Sequencer& sequencer, const RunOptions& options, const SetUp& setUp, ScriptedHost& host) {
    const InterruptWatcher watcher(sequencer);  // ahead of all other threads
    host.start();
    Outcome outcome = runProcedure(sequencer, options.procedure, setUp.arguments(), options.startStopped);
    host.finish();
    letLogAhead();
    return outcome;
}

}  // namespace

int run(const RunOptions& options, const Streams& streams) {
    requireScriptForStops(options);
    Inputs inputs(streams.in);
    startLog(options.log);
    const SetUp setUp(inputs, options, streams.err);
    std::vector<AnswerRule> answers;
    if (!options.answersFile.empty())
        answers = readAnswers(inputs, options.answersFile);
    std::optional<InterruptibleLines> lines;
    if (!options.controlFile.empty())
        lines.emplace(inputs, options.controlFile);
    const auto loaded = load(inputs, options.document);
    if (const auto* unloadable = std::get_if<Outcome>(&loaded)) {
        letLogAhead();
        return report(*unloadable, options.document, options.json, streams);
    }

    Sequencer& sequencer = *std::get<std::shared_ptr<Sequencer>>(loaded);
    setUp.apply(sequencer);
    setBreakpoints(sequencer, options.breakpoints);
    if (!isScripted(options)) {
        sequencer.SetHost(setUp.messages());
        return report(runToEnd(sequencer, options, setUp), options.document, options.json, streams);
    }
    const auto host = std::make_shared<ScriptedHost>(sequencer, setUp.messages(), std::move(answers),
                                                     lines ? &*lines : nullptr, streams.err);
    sequencer.SetHost(host);
    return report(runToEnd(sequencer, options, setUp, *host), options.document, options.json, streams);
}

}  // namespace velkotx::host
