// Loads the document of a command.
#pragma once

#include "program/Outcome.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <variant>

namespace velkotx {
class Sequencer;
}

namespace velkotx::host {

class Inputs;

using Loaded = std::variant<std::shared_ptr<Sequencer>, Outcome>;

// The loaded document, or the outcome "unloadable" with the reason. Throws UsageError as Inputs::open does.
Loaded load(Inputs& inputs, const std::string& document);

// The same of a document in memory.
Loaded load(std::istream& document);

}  // namespace velkotx::host
