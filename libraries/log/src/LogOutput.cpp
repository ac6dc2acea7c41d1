// The output of the process: one queue and what it writes to.
#include <otx/log/LogOutput.h>

#include "LineFile.h"
#include "LineQueue.h"
#include "Output.h"

#include <cstdlib>
#include <memory>
#include <utility>

namespace Hvt {

namespace {

// How long the exit of the process waits for a reader that takes nothing.
constexpr std::chrono::milliseconds patience{2000};

// Never destroyed: its thread runs to the end of the process.
LineQueue& queue() {
    static auto* const made = [] {
        auto* const first = new LineQueue;
        static_cast<void>(std::atexit([] { queue().drain(patience); }));
        return first;
    }();
    return *made;
}

}  // namespace

void writeToOutput(std::string line, bool isFailure) { queue().push(std::move(line), isFailure); }

void LogOutput::ToStandardError() { queue().setTarget(std::make_shared<LineFile>()); }

void LogOutput::ToFile(const LogFile& file) { queue().setTarget(std::make_shared<LineFile>(file)); }

bool LogOutput::Flush(std::chrono::milliseconds atMost) noexcept { return queue().flush(atMost); }

std::uint64_t LogOutput::LostLines() noexcept { return queue().lostLines(); }

}  // namespace Hvt
