// The forms from which a document is loaded.
#pragma once

#include <velkotx/Sequencer.h>

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

namespace documents {

std::unique_ptr<std::istream> streamOf(const std::string& document);

// Saves, loads from what was saved, and saves again. Throws std::runtime_error when the two savings differ, or when the
// compiled form can't be written or read.
std::shared_ptr<velkotx::Sequencer> loadedFromCompiledForm(velkotx::Sequencer& sequencer);

// Why the compiled form isn't available at all, if it isn't: tried with the smallest document there is.
std::optional<std::string> compiledFormMissing();

}  // namespace documents
