// The debugger's commands that set breakpoints and steer a run.
#include "program/debug/Debugger.h"

#include "program/Breakpoints.h"
#include "program/debug/CommandText.h"
#include "text/OneLine.h"

#include <otx/value/COtxInt.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>

namespace velkotx::host {

void Debugger::setBreakpoint(const std::string& idOrName) {
    if (idOrName.empty())
        return listBreakpoints();
    std::vector<std::string> ids = debuggee_.nodes.idsOf(idOrName);
    if (ids.empty()) {
        say("the document has no node '" + oneLine(idOrName) + "'; a node of that id would stop");
        ids.push_back(idOrName);
    }
    if (run_ != nullptr)
        run_->control("setbp", breakpointParameters(ids));
    for (const std::string& id : ids) {
        breakpoints_.insert(id);
        if (debuggee_.nodes.find(id) != nullptr)
            say("breakpoint " + placeText(id, {}));
    }
}

void Debugger::listBreakpoints() {
    if (breakpoints_.empty())
        say("no breakpoints");
    for (const std::string& id : breakpoints_)
        say("breakpoint " + placeText(id, {}));
}

void Debugger::clearBreakpoints(const std::string& idOrName) {
    std::vector<std::string> ids;
    if (idOrName.empty()) {
        breakpoints_.clear();
        say("no breakpoints any more");
    } else {
        if (breakpoints_.contains(idOrName))
            ids = {idOrName};
        else
            ids = debuggee_.nodes.idsOf(idOrName);
        std::erase_if(ids, [&](const std::string& id) { return !breakpoints_.contains(id); });
        if (ids.empty())
            throw CommandError("no breakpoint at '" + oneLine(idOrName) + "'");
    }
    if (run_ != nullptr)
        run_->control("clearbp", breakpointParameters(ids));  // an empty list is for all
    for (const std::string& id : ids) {
        breakpoints_.erase(id);
        say("no breakpoint any more " + placeText(id, {}));
    }
}

void Debugger::startRun(const std::string& procedure) {
    start(procedure, false);
}

void Debugger::startStopped(const std::string& procedure) {
    start(procedure, true);
}

void Debugger::start(const std::string& procedure, bool stopped) {
    if (run_ != nullptr && !reportEnd())
        throw CommandError("a run is under way: cancel ends it");
    const std::string& name = procedure.empty() ? debuggee_.procedure : procedure;
    run_ = std::make_unique<DebugRun>(
        RunOrder{debuggee_.document, debuggee_.setUp, name, stopped, breakpoints_, streams_.err});
    reportResumed(!run_->board().waitForStop({}));
}

void Debugger::continueFlows(const std::string& flow) {
    resume(flow, Resume::run);
    reportResumed(!run_->board().waitForResumed());
}

void Debugger::stepFlows(const std::string& flow) {
    resume(flow, Resume::step);
    reportResumed(!run_->board().waitForResumed());
}

void Debugger::letGo(const std::string& flow) {
    resume(flow, Resume::run);
}

// Flow by flow, and only those that the board has as stopped, so that it is known which ones were resumed: until a resumed
// flow has woken, the run takes a second `run` for it too.
void Debugger::resume(const std::string& flow, Resume how) {
    RunBoard& board = activeRun().board();
    const std::set<RunBoard::Flow> flows = flowsToResume(flow);
    reportStops();
    board.beginResume();
    for (const RunBoard::Flow each : flows) {
        const std::size_t lanes = how == Resume::step ? lanesAt(each) : 0;
        control(how == Resume::step ? "step" : "run", each);
        board.resumed(each, lanes);
    }
}

std::set<RunBoard::Flow> Debugger::flowsToResume(const std::string& flow) {
    const std::set<RunBoard::Flow> stopped = run_->board().stoppedFlows();
    if (const std::optional<long long> number = readNumber(flow, "flow")) {
        requireStopped(*number);
        return {*number};
    }
    if (stopped.empty())
        throw CommandError("no flow is stopped");
    return stopped;
}

// How many flows come into being where a flow goes on by one node.
std::size_t Debugger::lanesAt(RunBoard::Flow flow) const {
    const NodeIndex::Place* const place = debuggee_.nodes.find(run_->board().nodeOf(flow));
    return place != nullptr && place->node.type == "Parallel" ? place->node.flows : 0;
}

void Debugger::wait(const std::string& milliseconds) {
    const std::optional<long long> limit = readNumber(milliseconds, "number of milliseconds");
    constexpr long long longest = 86'400'000;  // a day
    if (limit && *limit > longest)
        throw CommandError("a day is the longest wait");
    if (run_ == nullptr)
        throw CommandError("nothing is running");
    RunBoard& board = run_->board();
    if (!board.hasEnded() && !board.waitForStop(std::chrono::milliseconds(0)) &&
        board.stoppedFlows().size() >= readFlows(run_->control("status", COtxMap())).size() &&
        !board.stoppedFlows().empty())
        throw CommandError("all flows are stopped");
    board.beginResume();
    const bool arrived = limit ? board.waitForStop(std::chrono::milliseconds(*limit)) : board.waitForStop({});
    reportResumed(!arrived);
}

void Debugger::pause(const std::string& flow) {
    RunBoard& board = activeRun().board();
    board.beginResume();
    try {
        controlRunning("stop", {}, readNumber(flow, "flow"));
    } catch (const std::runtime_error&) {
        reportNews();  // a stop that came ahead of the command
        throw;
    }
    reportResumed(!board.waitForStop({}));
}

void Debugger::cancel(const std::string&) {
    RunBoard& board = activeRun().board();
    board.beginResume();
    control("cancel");
    reportResumed(!board.waitForEnd());
}

void Debugger::inject(const std::string& typeAndText) {
    DebugRun& run = activeRun();
    const CommandText injected = takeWord(typeAndText);
    if (run.board().stoppedFlows().size() >= readFlows(control("status")).size())
        throw CommandError("all flows are stopped, and a stopped flow takes no exception: let it go first");
    controlRunning("exception", {{"type", COtxString(injected.word)}, {"text", COtxString(injected.rest)}}, {});
}

}  // namespace velkotx::host
