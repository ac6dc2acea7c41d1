// The debugger's commands that show something.
#include "program/debug/Debugger.h"

#include "program/IndentedJson.h"
#include "program/JsonText.h"
#include "program/debug/CommandText.h"
#include "program/debug/NodeList.h"
#include "text/OneLine.h"

#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>

#include <ostream>

namespace velkotx::host {

namespace {

// Null for a variable that isn't there.
const COtxValue* findVariable(const COtxValue& variables, const std::string& name) {
    const auto found = variables.Map().find(COtxString(name));
    return found != variables.Map().end() ? &found->second : nullptr;
}

COtxValue globalsOf(const COtxValue& reply) {
    return OTX::GetParameter(reply, "globalvars", OTX::ValueType::Map);
}

}  // namespace

void Debugger::showFlows(const std::string&) {
    // What is stopped ahead of the status is so in the status.
    const std::set<RunBoard::Flow> stopped = activeRun().board().stoppedFlows();
    const std::optional<RunBoard::Flow> current = currentFlow();
    const std::vector<FlowStatus> flows = readFlows(control("status"));
    for (const FlowStatus& flow : flows) {
        const std::string line = (flow.flow == current ? "* " : "  ") + std::to_string(flow.flow);
        if (stopped.contains(flow.flow))
            say(line + " STOPPED " + placeText(flow.node, flow.frames));
        else
            say(line + " RUNNING");
    }
}

void Debugger::showFrames(const std::string& flow) {
    const FlowStatus status = statusOf(flow);
    say("flow " + std::to_string(status.flow) + ' ' + placeText(status.node, status.frames));
    for (const std::string& frame : status.frames)
        say("  " + oneLine(frame));
}

void Debugger::showVariables(const std::string& flow) {
    streams_.out << variableLines(statusOf(flow).variables);
}

void Debugger::showGlobals(const std::string&) {
    streams_.out << variableLines(globalsOf(control("status")));
}

void Debugger::print(const std::string& name) {
    activeRun();
    const std::optional<RunBoard::Flow> current = currentFlow();
    const COtxValue reply = control("status");
    const COtxValue globals = globalsOf(reply);
    const COtxValue* value = findVariable(globals, name);
    for (const FlowStatus& flow : readFlows(reply)) {
        if (flow.flow != current)
            continue;
        if (const COtxValue* const local = findVariable(flow.variables, name))
            return say(indentedJson(jsonText(*local)));
    }
    if (value == nullptr)
        throw CommandError("no variable '" + oneLine(name) + "'");
    say(indentedJson(jsonText(*value)));
}

void Debugger::list(const std::string& procedure) {
    std::string shown = procedure.empty() ? debuggee_.procedure : procedure;
    std::string node;
    if (run_ != nullptr && !run_->board().hasEnded() && currentFlow()) {
        const FlowStatus status = statusOf("");
        const NodeIndex::Place* const place = debuggee_.nodes.find(status.node, status.frames);
        if (place != nullptr && (procedure.empty() || place->procedure == procedure)) {
            shown = place->procedure;
            node = status.node;
        }
    }
    const std::vector<NodeInfo>* const nodes = debuggee_.nodes.nodesOf(shown);
    if (nodes == nullptr)
        throw CommandError("no procedure '" + oneLine(shown) + "' that can be run");
    say(oneLine(shown));
    streams_.out << listNodes(*nodes, node, breakpoints_);
}

}  // namespace velkotx::host
