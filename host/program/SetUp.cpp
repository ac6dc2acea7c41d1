// What the runs of a command are given.
#include "program/SetUp.h"

#include "program/Options.h"
#include "program/ProviderFolder.h"
#include "program/Values.h"

#include <otx/value/Functions.h>
#include <velkotx/Sequencer.h>

namespace velkotx::host {

SetUp::SetUp(Inputs& inputs, const SetUpOptions& options, std::ostream& err)
    : arguments_(readArguments(inputs, options.argumentsFile, options.arguments, err)),
      context_(readObject(inputs, options.contextFile)),
      translations_(readObject(inputs, options.translationsFile)),
      vehicle_(inputs, options, err),
      persistence_(options),
      store_(options),
      messages_(options.messagesFile) {
    useProviderFolder(options.providersFolder);
}

COtxValue SetUp::arguments() const {
    return OTX::DeepCopy(arguments_);
}

void SetUp::apply(Sequencer& sequencer) const {
    sequencer.SetContextVariables(OTX::DeepCopy(context_));
    sequencer.SetTranslations(OTX::DeepCopy(translations_));
    vehicle_.apply(sequencer);
    persistence_.apply(sequencer);
    store_.apply(sequencer);
}

}  // namespace velkotx::host
