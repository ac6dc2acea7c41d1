// The program velkotx as a function.
#include "program/Program.h"

#include "program/Commands.h"
#include "program/ExitStatus.h"
#include "program/RunLog.h"
#include "program/UsageError.h"
#include "text/OneLine.h"

#include <exception>
#include <ostream>

namespace velkotx::host {

namespace {

struct Answer {
    const Streams& streams;

    int operator()(const RunOptions& options) const { return logged(options.log, run(options, streams)); }
    int operator()(const DebugOptions& options) const { return logged(options.log, debug(options, streams)); }
    int operator()(const InfoOptions& options) const { return info(options, streams); }
    int operator()(const CompileOptions& options) const { return compile(options, streams); }
    int operator()(const DumpOptions& options) const { return dump(options, streams); }
    int operator()(const VehicleCheckOptions& options) const { return checkVehicle(options, streams); }
    int operator()(const Answered& answered) const { return answered.status; }

    int logged(const LogOptions& log, int status) const {
        tellLostLines(log, streams.err);
        return status;
    }
};

int complain(const std::exception& error, int status, const Streams& streams) {
    streams.err << "velkotx: " << oneLine(error.what()) << '\n';
    return status;
}

}  // namespace

int runProgram(int argc, const char* const* argv, const Streams& streams) {
    try {
        const int status = std::visit(Answer{streams}, parseCommandLine(argc, argv, streams.out, streams.err));
        if (streams.out.flush())
            return status;
        streams.err << "velkotx: standard output can't be written\n";
        return ExitStatus::failed;
    } catch (const UsageError& error) {
        return complain(error, ExitStatus::badInput, streams);
    } catch (const std::exception& error) {
        return complain(error, ExitStatus::failed, streams);
    }
}

}  // namespace velkotx::host
