// velkotx info: what a document offers to run.
#include "program/Commands.h"

#include "program/DescriptionText.h"
#include "program/Inputs.h"
#include "program/Load.h"
#include "program/Report.h"
#include "program/Terminal.h"

#include <velkotx/DocumentInfo.h>

#include <ostream>

namespace velkotx::host {

int info(const InfoOptions& options, const Streams& streams) {
    Inputs inputs(streams.in);
    const auto loaded = load(inputs, options.document);
    if (const auto* unloadable = std::get_if<Outcome>(&loaded))
        return report(*unloadable, options.document, options.json, streams);

    const DocumentInfo description = DescribeDocument(*std::get<std::shared_ptr<Sequencer>>(loaded));
    if (options.json)
        streams.out << describeAsJson(description) << '\n';
    else
        streams.out << describeAsText(description, Paint::forStandardOutput());
    return exitStatus(Outcome::Kind::finished);
}

}  // namespace velkotx::host
