// velkotx dump: a compiled document shown field by field.
#include "program/Commands.h"

#include "program/Inputs.h"
#include "program/Report.h"
#include "program/UsageError.h"

#include <velkotx/DumpCompiled.h>

#include <istream>
#include <stdexcept>

namespace velkotx::host {

int dump(const DumpOptions& options, const Streams& streams) {
    Inputs inputs(streams.in);
    try {
        DumpCompiled(*inputs.open(options.document), streams.out);
    } catch (const UsageError&) {
        throw;
    } catch (const std::runtime_error& error) {
        const Outcome unloadable{Outcome::Kind::unloadable, COtxValue(), error.what(), {}};
        return report(unloadable, options.document, false, streams);
    }
    return exitStatus(Outcome::Kind::finished);
}

}  // namespace velkotx::host
