// What the parts do with a document.
#include "Document.h"

#include <otx/value/IString.h>

#include <sstream>

namespace faults {

std::shared_ptr<velkotx::Sequencer> load(const std::string& document) {
    std::istringstream stream(document);
    return velkotx::CreateSequencer(stream);
}

std::string compiledForm(velkotx::Sequencer& sequencer) {
    std::ostringstream out;
    sequencer.Save(out);
    return std::move(out).str();
}

std::string compiledForm(const std::string& document) {
    return compiledForm(*load(document));
}

std::string textOf(const COtxValue& outParameters) {
    return outParameters.ToJSON().String();
}

std::string run(velkotx::Sequencer& sequencer) {
    return textOf(sequencer.Run("main", COtxValue(), false));
}

}  // namespace faults
