// What a script has for a run: a command of run control, or an event.
#pragma once

#include <otx/value/COtxValue.h>

#include <string>
#include <variant>

namespace velkotx::host {

// For Sequencer::Control.
struct ControlCommand {
    std::string word;
    COtxValue parameters;  // a map, empty where the script says nothing
};

// For Sequencer::SendEvent.
struct Event {
    COtxValue value;
};

using HostCommand = std::variant<ControlCommand, Event>;

// Takes {"control": "step", "params": {...}} as a command and {"eventType": "...", ...} as an event. Whether the run knows
// the word, or the event, is the run's to say. Throws FormError.
HostCommand readHostCommand(const COtxValue& json);

// Whether a stopped flow goes on after it, if the run takes it.
bool resumes(const HostCommand& command);
bool cancels(const HostCommand& command);
// Whether that screen is closed after it.
bool closes(const HostCommand& command, const std::string& screen);

}  // namespace velkotx::host
