// The debugger's loop over its commands, and what it reports of a run.
#include "program/debug/Debugger.h"

#include "program/Report.h"
#include "program/RunLog.h"
#include "program/debug/CommandText.h"
#include "text/OneLine.h"
#include "text/Refusal.h"

#include <otx/value/COtxInt.h>
#include <otx/value/COtxMap.h>

#include <algorithm>
#include <ostream>

namespace velkotx::host {

Debugger::Debugger(const Debuggee& debuggee, const Streams& streams) : debuggee_(debuggee), streams_(streams) {}

Debugger::~Debugger() = default;

std::span<const Debugger::Command> Debugger::commands() {
    using enum Argument;
    static constexpr Command table[] = {
        {"break", "[ID|NAME]", possible, false, "stop ahead of a node; without one, list the breakpoints",
         &Debugger::setBreakpoint},
        {"clear", "[ID|NAME]", possible, false, "take a breakpoint away, or all", &Debugger::clearBreakpoints},
        {"run", "[PROCEDURE]", possible, false, "run up to the first stop or the end", &Debugger::startRun},
        {"start", "[PROCEDURE]", possible, false, "run up to the first node", &Debugger::startStopped},
        {"continue", "[FLOW]", possible, true, "go on, to the next stop or the end", &Debugger::continueFlows},
        {"step", "[FLOW]", possible, true, "go on by one node", &Debugger::stepFlows},
        {"go", "[FLOW]", possible, false, "go on without waiting for the next stop", &Debugger::letGo},
        {"wait", "[MS]", possible, false, "wait for the next stop or the end, at most so many milliseconds",
         &Debugger::wait},
        {"pause", "[FLOW]", possible, false, "stop what runs, ahead of its next node", &Debugger::pause},
        {"cancel", "", none, false, "cancel the run", &Debugger::cancel},
        {"inject", "TYPE [TEXT]", needed, false, "raise an exception in what runs, ahead of its next node",
         &Debugger::inject},
        {"flows", "", none, false, "list the flows, the current one marked", &Debugger::showFlows},
        {"where", "[FLOW]", possible, false, "show a stopped flow's node and frames, the bottom first",
         &Debugger::showFrames},
        {"vars", "[FLOW]", possible, false, "show the variables of a stopped flow's top frame",
         &Debugger::showVariables},
        {"globals", "", none, false, "show the global variables", &Debugger::showGlobals},
        {"print", "NAME", needed, false, "show a variable of the current flow, else a global one", &Debugger::print},
        {"list", "[PROCEDURE]", possible, false, "list the nodes, the current one marked >, breakpoints *",
         &Debugger::list},
        {"help", "", none, false, "list the commands", &Debugger::help},
        {"quit", "", none, false, "cancel the run, if there is one, and end", &Debugger::quit},
    };
    return table;
}

bool Debugger::obey(const std::string& line, bool repeats) {
    CommandText command = takeWord(line);
    if (command.word.empty() && repeats && takeWord(line + '.').word == ".")
        command = takeWord(repeated_);
    if (command.word.empty())
        return true;
    try {
        obey(command.word, command.rest);
    } catch (const std::exception& error) {
        say(oneLine(refusalOf(error)));
    }
    streams_.out.flush();
    return !isOver_;
}

void Debugger::obey(const std::string& word, const std::string& argument) {
    const auto known = commands();
    const auto command = std::ranges::find(known, word, &Command::word);
    if (command == known.end())
        throw CommandError("'" + word + "' is no command: help lists them");
    if ((command->takes == Argument::none && !argument.empty()) ||
        (command->takes == Argument::needed && argument.empty()))
        throw CommandError(std::string("usage: ") + word + (*command->argument != '\0' ? " " : "") +
                           command->argument);
    if (command->isRepeated)
        repeated_ = word + ' ' + argument;
    (this->*command->work)(argument);
}

void Debugger::help(const std::string&) {
    constexpr std::size_t width = 24;
    for (const Command& command : commands()) {
        std::string line = std::string(command.word) + ' ' + command.argument;
        line.resize(std::max(line.size(), width), ' ');
        say(line + command.help);
    }
}

void Debugger::quit(const std::string&) {
    isOver_ = true;
}

void Debugger::reportNews() {
    if (run_ != nullptr && !reportEnd())
        reportStops();
    streams_.out.flush();
}

int Debugger::finish() {
    if (run_ != nullptr) {
        run_->finish();
        reportEnd();
    }
    return exitStatus_;
}

bool Debugger::reportEnd() {
    if (!run_->board().hasEnded())
        return false;
    const Outcome outcome = run_->board().outcome();
    run_.reset();
    current_.reset();
    letLogAhead();
    say(std::string("the run has ended: ") + nameOf(outcome.kind));
    exitStatus_ = report(outcome, debuggee_.name, false, streams_);
    return true;
}

void Debugger::reportStops() {
    const std::vector<RunBoard::Stop> stops = run_->board().takeStops();
    if (!stops.empty())
        letLogAhead();
    for (const RunBoard::Stop& stop : stops) {
        const FlowStatus status = statusOf(std::to_string(stop.flow));
        say("flow " + std::to_string(stop.flow) + " stopped " + placeText(stop.node, status.frames));
    }
    if (!stops.empty())
        current_ = stops.front().flow;
}

void Debugger::reportResumed(bool isUnderWay) {
    if (reportEnd())
        return;
    for (const RunBoard::Flow flow : run_->board().endedFlows())
        say("flow " + std::to_string(flow) + " has ended");
    reportStops();
    if (isUnderWay)
        say("the run goes on");
}

DebugRun& Debugger::activeRun() {
    if (run_ == nullptr || reportEnd())
        throw CommandError("nothing is running");
    return *run_;
}

COtxValue Debugger::control(const std::string& command, const std::optional<long long>& flow) {
    std::map<const std::string, COtxValue> parameters;
    if (flow)
        parameters.emplace("flowId", COtxInt(*flow));
    return activeRun().control(command, COtxMap(parameters));
}

void Debugger::controlRunning(const std::string& command, std::map<const std::string, COtxValue> parameters,
                              const std::optional<long long>& flow) {
    DebugRun& run = activeRun();
    if (flow)
        parameters.emplace("flowId", COtxInt(*flow));
    const bool wasResumed = run.board().someFlowWasResumed(flow);
    try {
        run.control(command, COtxMap(parameters));
    } catch (const std::runtime_error&) {
        if (!wasResumed)
            throw;
    }
}

FlowStatus Debugger::statusOf(const std::string& flow) {
    activeRun();
    std::optional<long long> number = readNumber(flow, "flow");
    if (!number)
        number = currentFlow();
    if (!number)
        throw CommandError("no flow is stopped");
    return readFlows(requireStopped(*number)).at(0);
}

COtxValue Debugger::requireStopped(RunBoard::Flow flow) {
    const bool isStopped = activeRun().board().stoppedFlows().contains(flow);
    COtxValue status = control("status", flow);
    if (!isStopped)
        throw CommandError("flow " + std::to_string(flow) + " is running");
    return status;
}

std::optional<RunBoard::Flow> Debugger::currentFlow() {
    const std::set<RunBoard::Flow> stopped = run_->board().stoppedFlows();
    if (current_ && stopped.contains(*current_))
        return current_;
    if (stopped.empty())
        return {};
    return *stopped.begin();
}

std::string Debugger::placeText(const std::string& node, const std::vector<std::string>& frames) const {
    if (node.empty())
        return "ahead of its first node";
    const NodeIndex::Place* const place = debuggee_.nodes.find(node, frames);
    if (place == nullptr)
        return "at " + oneLine(node);
    return "at " + nodeText(place->node) + " in " + oneLine(place->procedure);
}

void Debugger::say(const std::string& line) {
    streams_.out << line << '\n';
}

}  // namespace velkotx::host
