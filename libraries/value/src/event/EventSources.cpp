// The event sources of variables, screens and signals, and the one that waits on several.
#include <otx/event/COtxHMIScreenClosedEventSource.h>
#include <otx/event/COtxMonitorChangeEventSource.h>
#include <otx/event/COtxMultiEventSource.h>
#include <otx/event/COtxSignalEventSource.h>
#include <otx/event/COtxThresholdExceededEventSource.h>

#include <otx/event/COtxEvent.h>
#include <otx/value/COtxString.h>

#include <algorithm>
#include <atomic>

#include "EventSource.h"
#include "OpenSources.h"

namespace otx {

namespace {

class SignalSource final : public KindSource {
public:
    explicit SignalSource(OTX::EventKind kind) : KindSource(kind) {}
};

// A screen that has gone stays gone: whoever waits, however many and whenever, learns of it.
class ScreenClosedSource final : public KindSource {
public:
    ScreenClosedSource() : KindSource(OTX::EventKind::ScreenClosed) {}

    // Needs no memory: the event is made when somebody looks.
    void Signal() override {
        gone_ = true;
        ringAll();
    }
    Look look(COtxValue& event) override {
        const Look found = KindSource::look(event);
        if (found != Look::Nothing || !gone_) return found;
        event = COtxEvent(OTX::EventKind::ScreenClosed, COtxString(), COtxValue());
        return Look::Event;
    }

private:
    std::atomic<bool> gone_{false};
};

class MonitorSource final : public KindSource {
public:
    explicit MonitorSource(std::size_t ownLongestQueue) : KindSource(OTX::EventKind::MonitorChange, ownLongestQueue) {}
    void Changed(const COtxValue& name, const COtxValue& value) override { deliver(name, value); }
};

class ThresholdSource final : public KindSource {
public:
    ThresholdSource(const COtxValue& lower, const COtxValue& upper, const COtxValue& current)
        : KindSource(OTX::EventKind::ThresholdExceeded), lower_(lower), upper_(upper), inside_(holds(current)) {}

    void Changed(const COtxValue& name, const COtxValue& value) override {
        const bool inside = holds(value);
        bool leaves = false;
        {
            const std::lock_guard guard(rangeLock_);
            leaves = inside_ && !inside;
            inside_ = inside;
        }
        if (leaves) deliver(name, value);
    }

private:
    bool holds(const COtxValue& value) const { return lower_ <= value && value <= upper_; }

    const COtxValue lower_;
    const COtxValue upper_;
    // Guards inside_.
    std::mutex rangeLock_;
    bool inside_;
};

class MultiSource final : public EventSource {
public:
    bool Add(const COtxValue& source) override;
    Look look(COtxValue& event) override;
    std::optional<Clock::time_point> deadline() const override;
    void watch(const std::shared_ptr<Bell>& bell) override;

private:
    using Members = std::vector<std::shared_ptr<EventSource>>;

    Members members() const {
        const std::lock_guard guard(membersLock_);
        return members_;
    }

    // Guards members_.
    mutable std::mutex membersLock_;
    Members members_;
};

bool MultiSource::Add(const COtxValue& source) {
    const auto member = sourceBehind(source);
    if (member == nullptr) return false;
    Members added{member};
    // The members of another multi-source, so that no source can come to hold itself.
    if (const auto* const multi = dynamic_cast<const MultiSource*>(member.get())) added = multi->members();
    for (const auto& one : added) one->watch(bell());
    {
        const std::lock_guard guard(membersLock_);
        members_.insert(members_.end(), added.begin(), added.end());
    }
    bell()->ring();
    return true;
}

EventSource::Look MultiSource::look(COtxValue& event) {
    if (isClosed()) return Look::Closed;
    Look found = Look::Nothing;
    for (const auto& member : members()) {
        switch (member->look(event)) {
            case Look::Event: return Look::Event;
            case Look::Closed: found = Look::Closed; break;
            case Look::Nothing: break;
        }
    }
    return found;
}

std::optional<Clock::time_point> MultiSource::deadline() const {
    std::optional<Clock::time_point> earliest;
    for (const auto& member : members()) {
        const auto time = member->deadline();
        if (time && (!earliest || *time < *earliest)) earliest = time;
    }
    return earliest;
}

void MultiSource::watch(const std::shared_ptr<Bell>& bell) {
    EventSource::watch(bell);
    for (const auto& member : members()) member->watch(bell);
}

}  // namespace

}  // namespace otx

COtxHMIScreenClosedEventSource::COtxHMIScreenClosedEventSource()
    : COtxValue(otx::makeSource<otx::ScreenClosedSource>()) {}
COtxMonitorChangeEventSource::COtxMonitorChangeEventSource()
    : COtxMonitorChangeEventSource(otx::EventSource::longestQueue) {}
COtxMonitorChangeEventSource::COtxMonitorChangeEventSource(std::size_t longestQueue)
    : COtxValue(otx::makeSource<otx::MonitorSource>(longestQueue)) {}
COtxMultiEventSource::COtxMultiEventSource() : COtxValue(otx::makeSource<otx::MultiSource>()) {}
COtxSignalEventSource::COtxSignalEventSource(OTX::EventKind kind)
    : COtxValue(otx::makeSource<otx::SignalSource>(kind)) {}
COtxThresholdExceededEventSource::COtxThresholdExceededEventSource(const COtxValue& lower, const COtxValue& upper,
                                                                   const COtxValue& current)
    : COtxValue(otx::makeSource<otx::ThresholdSource>(lower, upper, current)) {}
