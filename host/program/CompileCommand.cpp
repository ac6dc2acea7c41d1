// velkotx compile: a document in the compiled form.
#include "program/Commands.h"

#include "program/Inputs.h"
#include "program/Load.h"
#include "program/Outputs.h"
#include "program/Report.h"

#include <velkotx/Sequencer.h>

#include <sstream>

namespace velkotx::host {

int compile(const CompileOptions& options, const Streams& streams) {
    Inputs inputs(streams.in);
    const auto loaded = load(inputs, options.document);
    if (const auto* unloadable = std::get_if<Outcome>(&loaded))
        return report(*unloadable, options.document, false, streams);

    // In memory first: OUT isn't touched before the whole document is there.
    std::ostringstream compiled;
    std::get<std::shared_ptr<Sequencer>>(loaded)->Save(compiled);
    writeOutput(options.output, compiled.view(), streams.out);
    return exitStatus(Outcome::Kind::finished);
}

}  // namespace velkotx::host
