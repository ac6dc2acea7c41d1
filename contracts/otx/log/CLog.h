// The trace: one object is one line.
#pragma once

#include <otx/Export.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <functional>
#include <sstream>
#include <string>

namespace Hvt {

using TLogLevel = int;
using TLogSubSys = unsigned int;

// Subsystems that log: 2 is the log of sequences, 3 the trace of the sequencer. Levels run from 0 (failures) to 7; a
// subsystem reports what is at or below its level, and nothing while the level is negative, which is how all begin.
//
// A line is guarded and then built in a stream of its own:
//     if (Hvt::CLog::ReportingLevel(3) >= 4) Hvt::CLog(3).Get(4, 3) << "...";
// The destructor delivers the line whole, to the sink or, without one, to the LogOutput. No operation throws, whatever the
// sink does. Any thread.
class OTX_API CLog {
public:
    static constexpr std::size_t subsystems = 16;

    static TLogLevel ReportingLevel(TLogSubSys subsystem) noexcept {
        return subsystem < subsystems ? levels_[subsystem].load(std::memory_order_relaxed) : -1;
    }
    static void SetReportingLevel(TLogSubSys subsystem, TLogLevel level) noexcept;

    // Where lines go instead of the LogOutput, without their line end. Called on the thread that logs, by one at a time,
    // so it holds all of them up while it works; the thread's cancellation is put off. Must neither log itself, nor call a
    // Sequencer, nor end the thread. An empty function brings the LogOutput back.
    static void SetSink(std::function<void(TLogSubSys, TLogLevel, const std::string& line)> sink);

    explicit CLog(TLogSubSys subsystem);
    CLog(const CLog&) = delete;
    CLog& operator=(const CLog&) = delete;
    ~CLog();

    // The stream for the line, with that level. The subsystem 0 stands for the one of the constructor.
    std::ostringstream& Get(TLogLevel level, TLogSubSys subsystem);

private:
    static constinit std::array<std::atomic<TLogLevel>, subsystems> levels_;

    TLogSubSys subsystem_;
    TLogLevel level_ = 0;
    std::ostringstream line_;
};

}  // namespace Hvt
