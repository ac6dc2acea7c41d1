// Loads the document of a command.
#pragma once

#include "program/Outcome.h"

#include <memory>
#include <string>
#include <variant>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

class Inputs;

// The loaded document, or the outcome "unloadable" with the reason. Throws UsageError as Inputs::open does.
std::variant<std::shared_ptr<Sequencer>, Outcome> load(Inputs& inputs, const std::string& document);

}  // namespace velkotx::host
