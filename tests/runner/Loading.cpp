// The forms from which a document is loaded.
#include "Loading.h"

#include <sstream>
#include <stdexcept>

namespace documents {

namespace {

std::string saved(velkotx::Sequencer& sequencer) {
    std::ostringstream out;
    sequencer.Save(out);
    return out.str();
}

}  // namespace

std::unique_ptr<std::istream> streamOf(const std::string& document) { return std::make_unique<std::istringstream>(document); }

std::shared_ptr<velkotx::Sequencer> loadedFromCompiledForm(velkotx::Sequencer& sequencer) {
    const std::string first = saved(sequencer);
    const auto loaded = velkotx::CreateSequencer(*streamOf(first));
    const std::string second = saved(*loaded);
    if (first != second)
        throw std::runtime_error("saved again, the compiled form differs: " + std::to_string(first.size()) + " and " +
                                 std::to_string(second.size()) + " bytes");
    return loaded;
}

std::optional<std::string> compiledFormMissing() {
    const auto smallest = velkotx::CreateSequencer(
        *streamOf("<?xml version=\"1.0\"?><otx xmlns=\"http://iso.org/OTX/1.0.0\" id=\"o\" package=\"p\" version=\"1\" "
                  "timestamp=\"2026-01-15T10:00:00\"/>"));
    try {
        saved(*smallest);
    } catch (const std::runtime_error& failure) {
        return failure.what();
    }
    return std::nullopt;
}

}  // namespace documents
