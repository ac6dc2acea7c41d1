// The trace: levels, and the way of a line to its sink.
#include <otx/log/CLog.h>

#include "Output.h"

#include <cxxabi.h>
#include <pthread.h>

#include <locale>
#include <mutex>
#include <utility>

namespace Hvt {

namespace {

using Sink = std::function<void(TLogSubSys, TLogLevel, const std::string&)>;

// Never destroyed: objects that log in their destructors may outlive it.
class Delivery {
public:
    static Delivery& instance() {
        static auto* const delivery = new Delivery;
        return *delivery;
    }

    void setSink(Sink sink) {
        const std::lock_guard guard(sinkLock_);
        sink_.swap(sink);
    }

    void deliver(TLogSubSys subsystem, TLogLevel level, std::string line) {
        if (!sink(subsystem, level, line)) writeToOutput(std::move(line), level <= 0);
    }

private:
    bool sink(TLogSubSys subsystem, TLogLevel level, const std::string& line) {
        const std::lock_guard guard(sinkLock_);
        if (sink_) sink_(subsystem, level, line);
        return static_cast<bool>(sink_);
    }

    // Guards sink_, and is held while it runs.
    std::mutex sinkLock_;
    Sink sink_;
};

// Puts the cancellation of the thread off: it must not begin in a destructor, which can't let it pass.
class CancellationHeld {
public:
    CancellationHeld() { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before_); }
    CancellationHeld(const CancellationHeld&) = delete;
    CancellationHeld& operator=(const CancellationHeld&) = delete;
    ~CancellationHeld() { pthread_setcancelstate(before_, nullptr); }

private:
    int before_ = PTHREAD_CANCEL_ENABLE;
};

// Not inlined: in the destructor itself the compiler would take the rethrow for a certain end of the process.
[[gnu::noinline]] void deliverQuietly(TLogSubSys subsystem, TLogLevel level, const std::ostringstream& line) {
    try {
        Delivery::instance().deliver(subsystem, level, line.str());
    } catch (abi::__forced_unwind&) {
        throw;
    } catch (...) {
        // Logging never fails the one who logs.
    }
}

constexpr std::array<std::atomic<TLogLevel>, CLog::subsystems> allOff() {
    return {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
}

}  // namespace

constinit std::array<std::atomic<TLogLevel>, CLog::subsystems> CLog::levels_ = allOff();

void CLog::SetReportingLevel(TLogSubSys subsystem, TLogLevel level) noexcept {
    if (subsystem < subsystems) levels_[subsystem].store(level, std::memory_order_relaxed);
}

void CLog::SetSink(Sink sink) { Delivery::instance().setSink(std::move(sink)); }

CLog::CLog(TLogSubSys subsystem) : subsystem_(subsystem) {
    // The host's global locale must not change how numbers look.
    line_.imbue(std::locale::classic());
}

CLog::~CLog() {
    const CancellationHeld held;
    deliverQuietly(subsystem_, level_, line_);
}

std::ostringstream& CLog::Get(TLogLevel level, TLogSubSys subsystem) {
    level_ = level;
    if (subsystem != 0) subsystem_ = subsystem;
    return line_;
}

}  // namespace Hvt
