// Where the commands of a script enter the run.
#include "program/script/CommandPort.h"

#include "program/JsonText.h"
#include "text/Refusal.h"

#include <otx/value/COtxInt.h>
#include <otx/value/COtxMap.h>
#include <otx/value/Functions.h>
#include <velkotx/HostEventSink.h>
#include <velkotx/Sequencer.h>

#include <cxxabi.h>

#include <exception>
#include <map>
#include <ostream>
#include <utility>

namespace velkotx::host {

CommandPort::CommandPort(Sequencer& sequencer, HostEventSink& messages, std::ostream& err,
                         std::function<void(const HostCommand&)> sending)
    : sequencer_(sequencer), messages_(messages), sending_(std::move(sending)), err_(err) {}

void CommandPort::send(const HostCommand& command) {
    if (sending_)
        sending_(command);
    try {
        if (const auto* event = std::get_if<Event>(&command))
            sequencer_.SendEvent(OTX::DeepCopy(event->value));  // a rule may fire again
        else
            control(std::get<ControlCommand>(command));
    } catch (const std::exception& error) {
        refuse(refusalOf(error));
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        refuse("unknown exception");
    }
}

void CommandPort::refuse(const std::string& what) {
    const std::string line = JsonObject().add("refused", jsonText(what)).text() + '\n';
    const std::lock_guard guard(errLock_);
    err_ << line << std::flush;
}

void CommandPort::control(const ControlCommand& command) {
    const StopCounter::Flows before = [&] {
        const std::lock_guard guard(stopsLock_);
        return stops_.stops();
    }();
    const COtxValue reply = sequencer_.Control(command.word, OTX::DeepCopy(command.parameters));
    noteResumed(command, before);
    messages_.sendRequest(COtxMap(std::map<const std::string, COtxValue>{{"reply", reply}}));
}

void CommandPort::noteResumed(const ControlCommand& command, const StopCounter::Flows& before) {
    if (!resumes(command))
        return;
    const long long flow =
        OTX::GetOptionalParameter(command.parameters, "flowId", COtxInt(-1), OTX::ValueType::Integer).Int();
    const std::lock_guard guard(stopsLock_);
    const bool isForAll = flow < 0 || command.word == "cancel";  // a cancel is for all, whatever it says
    stops_.resumedFrom(before, isForAll ? std::nullopt : std::optional(flow));
}

void CommandPort::noteStop(StopCounter::Flow flow) {
    const std::lock_guard guard(stopsLock_);
    stops_.stopped(flow);
}

bool CommandPort::someFlowIsStopped() const {
    const std::lock_guard guard(stopsLock_);
    return !stops_.stoppedFlows().empty();
}

bool CommandPort::allFlowsAreStopped() const {
    try {
        const COtxValue status = sequencer_.Control("status", COtxMap());
        const std::size_t flows = OTX::GetParameter(status, "flows", OTX::ValueType::List).List().size();
        const std::lock_guard guard(stopsLock_);
        return stops_.stoppedFlows().size() >= flows;
    } catch (const std::exception&) {  // variables that can't be copied
        return false;
    }
}

}  // namespace velkotx::host
