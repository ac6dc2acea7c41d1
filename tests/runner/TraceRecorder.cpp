// Records the trace of the sequencer, and what the sequence itself logs, while it lives.
#include "TraceRecorder.h"

#include <otx/log/CLog.h>

#include <fnmatch.h>

#include <algorithm>
#include <string>

namespace documents {

namespace {

constexpr Hvt::TLogSubSys sequenceSubsystem = 2;
constexpr Hvt::TLogSubSys traceSubsystem = 3;

thread_local bool ignored = false;

// Function and message: what is left without thread, file and line number.
std::string essence(const std::string& line) {
    std::size_t start = 0;
    for (int field = 0; field < 3; ++field) {
        const auto colon = line.find(':', start);
        if (colon == std::string::npos) return line;
        start = colon + 1;
    }
    return line.substr(start);
}

}  // namespace

TraceRecorder::TraceRecorder(const std::vector<TraceFilter>& filters, int sequenceLevel, Transcript& transcript) {
    int highest = -1;
    for (const TraceFilter& filter : filters) highest = std::max(highest, filter.level);
    Hvt::CLog::SetSink([filters, &transcript](Hvt::TLogSubSys subsystem, Hvt::TLogLevel level, const std::string& line) {
        if (subsystem == sequenceSubsystem) transcript.add("written " + std::to_string(level) + ' ' + inOneLine(line));
        if (ignored || subsystem != traceSubsystem) return;
        const std::string text = inOneLine(essence(line));
        const bool wanted = std::any_of(filters.begin(), filters.end(), [&](const TraceFilter& filter) {
            return level <= filter.level && fnmatch(filter.pattern.c_str(), text.c_str(), FNM_NOESCAPE) == 0;
        });
        if (wanted) transcript.add("log " + std::to_string(level) + ' ' + text);
    });
    Hvt::CLog::SetReportingLevel(traceSubsystem, highest);
    Hvt::CLog::SetReportingLevel(sequenceSubsystem, sequenceLevel);
}

TraceRecorder::~TraceRecorder() {
    Hvt::CLog::SetReportingLevel(traceSubsystem, -1);
    Hvt::CLog::SetReportingLevel(sequenceSubsystem, -1);
    Hvt::CLog::SetSink([](Hvt::TLogSubSys, Hvt::TLogLevel, const std::string&) {});
}

void TraceRecorder::ignoreThisThread() { ignored = true; }

}  // namespace documents
