// What the parts do with a document.
#include "Document.h"

#include <otx/value/IString.h>

#include <sstream>

namespace faults {

std::shared_ptr<velkotx::Sequencer> load(const std::string& document) {
    std::istringstream stream(document);
    return velkotx::CreateSequencer(stream);
}

std::string compiledForm(const std::string& document) {
    std::ostringstream out;
    load(document)->Save(out);
    return std::move(out).str();
}

std::string run(velkotx::Sequencer& sequencer) {
    return sequencer.Run("main", COtxValue(), false).ToJSON().String();
}

}  // namespace faults
