// velkotx run: a host of one run.
#include "program/Commands.h"

#include "operator/Operator.h"
#include "program/Breakpoints.h"
#include "program/Inputs.h"
#include "program/InterruptWatcher.h"
#include "program/Load.h"
#include "program/Report.h"
#include "program/RunLog.h"
#include "program/RunOperator.h"
#include "program/SameFiles.h"
#include "program/SetUp.h"
#include "program/UnknownArguments.h"
#include "program/UsageError.h"
#include "program/script/InterruptibleLines.h"
#include "program/script/ScriptedHost.h"
#include "rest/RestWatch.h"

#include <velkotx/DocumentInfo.h>
#include <velkotx/Sequencer.h>

#include <atomic>
#include <csignal>
#include <memory>
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

// A terminal without anything else to do there is for the operator, unless the user says otherwise.
std::unique_ptr<RunOperator> makeOperator(Sequencer& sequencer, const RunOptions& options, const Inputs& inputs,
                                          std::ostream& err) {
    if (options.unattended.empty() && !inputs.isStandardInputTaken() && RunOperator::isPossible())
        return RunOperator::atTerminal(sequencer, err);
    const bool takesDefaults = options.unattended == "default";
    return RunOperator::absent(sequencer, takesDefaults ? WithoutOperator::defaults : WithoutOperator::fail, err);
}

Outcome runToEnd(Sequencer& sequencer, const RunOptions& options, const SetUp& setUp, ScriptedHost& host,
                 Operator& theOperator) {
    std::atomic<bool> isInterrupted{false};
    const InterruptWatcher watcher(sequencer, [&] {  // ahead of all other threads
        isInterrupted = true;
        theOperator.tell({ScreenNews::Kind::cancelled, {}, false, {}});
    });
    theOperator.start();
    host.start();
    std::optional<RestWatch> rest(std::in_place, [&] { host.rests(); });
    Outcome outcome = runProcedure(sequencer, options.procedure, setUp.arguments(), options.startStopped);
    rest.reset();
    host.finish();
    theOperator.finish();
    std::signal(SIGHUP, SIG_IGN);  // one that comes behind the run, or a second one, leaves its outcome alone
    letLogAhead();
    // A run that is cancelled in its last statement comes to its end all the same.
    if ((isInterrupted || theOperator.hasFailed() || host.hasFailed()) && outcome.kind == Outcome::Kind::finished)
        return {Outcome::Kind::cancelled, COtxValue(), "cancelled", {}};
    return outcome;
}

}  // namespace

int run(const RunOptions& options, const Streams& streams) {
    requireScriptForStops(options);
    refuseSameFiles(options);
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
    if (const COtxValue arguments = setUp.arguments(); !arguments.Map().empty())
        warnOfUnknownArguments(DescribeDocument(sequencer), options, arguments, streams.err);
    setUp.apply(sequencer);
    setBreakpoints(sequencer, options.breakpoints);
    const auto runOperator = makeOperator(sequencer, options, inputs, streams.err);
    const auto host = std::make_shared<ScriptedHost>(sequencer, setUp.messages(), std::move(answers),
                                                     lines ? &*lines : nullptr, streams.err, runOperator->sink());
    sequencer.SetHost(host);
    const Outcome outcome = runToEnd(sequencer, options, setUp, *host, *runOperator->sink());
    return report(outcome, options.document, options.json, streams);
}

}  // namespace velkotx::host
