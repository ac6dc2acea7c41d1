// What a run logs.
#include "program/RunLog.h"

#include "program/Options.h"
#include "program/UsageError.h"

#include <otx/log/CLog.h>
#include <otx/log/LogOutput.h>

#include <chrono>
#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>

namespace velkotx::host {

namespace {

// The numbers of the log library's subsystems.
constexpr Hvt::TLogSubSys sequenceLog = 2;
constexpr Hvt::TLogSubSys trace = 3;

constexpr std::chrono::seconds patience{2};
constexpr unsigned keptFiles = 3;

// Nothing said leaves the subsystem silent.
void setLevel(Hvt::TLogSubSys subsystem, const std::optional<int>& own, const std::optional<int>& common) {
    const std::optional<int>& level = own ? own : common;
    if (level)
        Hvt::CLog::SetReportingLevel(subsystem, *level);
}

void requireSense(const LogOptions& options) {
    if (options.limit && options.file.empty())
        throw UsageError("--log-limit: --log-file is needed");
    if (options.kept && !options.limit)
        throw UsageError("--log-keep: --log-limit is needed");
    if (options.file == "-")
        throw UsageError("--log-file: a file is needed, standard output has the outcome");
    if (!options.file.empty() && !options.level && !options.sequenceLevel && !options.traceLevel)
        throw UsageError("--log-file: --log, --log-sequence or --log-trace is needed, else nothing is logged");
}

void openFile(const LogOptions& options) {
    try {
        Hvt::LogOutput::ToFile({options.file, options.limit.value_or(0), options.kept.value_or(keptFiles)});
    } catch (const std::runtime_error& failure) {
        throw UsageError(failure.what());
    }
}

}  // namespace

void startLog(const LogOptions& options) {
    requireSense(options);
    if (!options.file.empty())
        openFile(options);
    setLevel(sequenceLog, options.sequenceLevel, options.level);
    setLevel(trace, options.traceLevel, options.level);
}

void letLogAhead() {
    Hvt::LogOutput::Flush(patience);
}

void tellLostLines(const LogOptions& options, std::ostream& err) {
    const std::uint64_t lost = Hvt::LogOutput::LostLines();
    if (lost > 0 && !options.file.empty())
        err << "velkotx: " << std::to_string(lost) << (lost == 1 ? " line" : " lines") << " of the log are lost\n";
}

}  // namespace velkotx::host
