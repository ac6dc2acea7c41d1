// The event source of a timer.
#include <otx/event/COtxEvent.h>
#include <otx/event/COtxTimerExpiredEventSource.h>
#include <otx/value/COtxString.h>

#include <algorithm>
#include <cmath>

#include "../Refusal.h"
#include "EventSource.h"
#include "OpenSources.h"

namespace otx {

namespace {

// No thread of its own: whoever waits, waits until the deadline at the latest.
class TimerSource final : public KindSource {
public:
    explicit TimerSource(Clock::duration timeout)
        : KindSource(OTX::EventKind::TimerExpired), deadline_(Clock::now() + timeout) {}

    Look look(COtxValue& event) override {
        const Look found = KindSource::look(event);
        if (found != Look::Nothing || Clock::now() < deadline_) return found;
        event = COtxEvent(OTX::EventKind::TimerExpired, COtxValue());
        return Look::Event;
    }
    std::optional<Clock::time_point> deadline() const override { return deadline_; }

private:
    const Clock::time_point deadline_;
};

Clock::duration timeoutOf(const COtxValue& timeout) {
    const double milliseconds = timeout.Type() == OTX::ValueType::Float ? timeout.Float()
                                                                        : static_cast<double>(timeout.Int());
    if (std::isnan(milliseconds)) fail(OTX::Exceptions_e::OutOfBoundsException, "Timeout is not a number");
    // A hundred years stand for ever, which the clock couldn't bear.
    constexpr double longest = 100 * 365.25 * 24 * 3600 * 1000;
    return std::chrono::duration_cast<Clock::duration>(
        std::chrono::duration<double, std::milli>(std::clamp(milliseconds, 0.0, longest)));
}

}  // namespace

}  // namespace otx

COtxTimerExpiredEventSource::COtxTimerExpiredEventSource(const COtxValue& timeout)
    : COtxValue(otx::makeSource<otx::TimerSource>(otx::timeoutOf(timeout))) {}
