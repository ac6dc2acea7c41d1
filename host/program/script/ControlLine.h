// A line of the file of --control.
#pragma once

#include "program/script/HostCommand.h"

#include <string>
#include <variant>

namespace velkotx::host {

// Waits for the next message of that eventType.
struct Await {
    std::string eventType;
};

using ControlLine = std::variant<HostCommand, Await>;

// Reads a line, {"control": ...}, {"eventType": ...} or {"await": "FlowStopped"}. Throws FormError.
ControlLine readControlLine(const std::string& line);

}  // namespace velkotx::host
