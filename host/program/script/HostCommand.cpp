// What a script has for a run.
#include "program/script/HostCommand.h"

#include "operator/ScreenNews.h"
#include "program/JsonMembers.h"

#include <otx/value/COtxMap.h>

namespace velkotx::host {

HostCommand readHostCommand(const COtxValue& json) {
    const JsonMembers members(json);
    if (!members.has("control")) {
        if (!members.has("eventType"))
            throw FormError("neither 'control' nor 'eventType' is there");
        members.requiredText("eventType");
        return Event{json};
    }
    members.refuseOthersThan({"control", "params"});
    return ControlCommand{members.requiredText("control"), members.object("params").value_or(COtxMap())};
}

bool resumes(const HostCommand& command) {
    const auto* control = std::get_if<ControlCommand>(&command);
    return cancels(command) || (control != nullptr && (control->word == "run" || control->word == "step"));
}

bool cancels(const HostCommand& command) {
    const auto* control = std::get_if<ControlCommand>(&command);
    return control != nullptr && control->word == "cancel";
}

bool closes(const HostCommand& command, const std::string& screen) {
    const auto* event = std::get_if<Event>(&command);
    return event != nullptr ? screenClosedBy(event->value) == screen : cancels(command);
}

}  // namespace velkotx::host
