// What all event sources of the library share.
#include "EventSource.h"

#include <otx/event/COtxEvent.h>
#include <otx/value/COtxString.h>

#include <algorithm>
#include <iterator>

#include "OpenSources.h"

OTX::IEventSource::~IEventSource() = default;

namespace otx {

void Bell::ring() {
    {
        const std::lock_guard guard(bellLock_);
        ++rings_;
    }
    rang_.notify_all();
}

void Bell::await(std::uint64_t seen, const std::optional<Clock::time_point>& until) {
    std::unique_lock guard(bellLock_);
    const auto rangSince = [&] { return rings_ != seen; };
    if (until)
        rang_.wait_until(guard, *until, rangSince);
    else
        rang_.wait(guard, rangSince);
}

std::uint64_t Bell::rings() const {
    const std::lock_guard guard(bellLock_);
    return rings_;
}

EventSource::EventSource(std::size_t ownLongestQueue) : longestQueue_(ownLongestQueue) {}

EventSource::~EventSource() { OpenSources::instance().remove(this); }

bool EventSource::Wait(COtxValue& event) {
    for (;;) {
        // Read before the look: what comes after it rings again.
        const std::uint64_t seen = bell_->rings();
        switch (look(event)) {
            case Look::Event: return true;
            case Look::Closed: return false;
            case Look::Nothing: break;
        }
        bell_->await(seen, deadline());
    }
}

void EventSource::Changed(const COtxValue&, const COtxValue&) {}
void EventSource::Put(const COtxValue& value) { deliver(COtxString(), value); }
void EventSource::Signal() { deliver(COtxString(), COtxValue()); }
bool EventSource::Add(const COtxValue&) { return false; }
void EventSource::deliver(const COtxValue&, const COtxValue&) {}

void EventSource::Close() {
    Queue dropped;
    {
        const std::lock_guard guard(sourceLock_);
        closed_ = true;
        dropped.swap(queue_);
    }
    ringAll();
}

EventSource::Look EventSource::look(COtxValue& event) {
    COtxValue taken;
    {
        const std::lock_guard guard(sourceLock_);
        if (closed_) return Look::Closed;
        if (queue_.empty()) return Look::Nothing;
        taken = std::move(queue_.front());
        queue_.pop_front();
    }
    event = std::move(taken);
    return Look::Event;
}

std::optional<Clock::time_point> EventSource::deadline() const { return std::nullopt; }

void EventSource::watch(const std::shared_ptr<Bell>& bell) {
    const auto all = std::make_shared<Watchers>();
    const std::lock_guard guard(sourceLock_);
    if (watchers_ != nullptr)
        std::copy_if(watchers_->begin(), watchers_->end(), std::back_inserter(*all),
                     [](const auto& watcher) { return !watcher.expired(); });
    all->push_back(bell);
    watchers_ = all;
}

void EventSource::enqueue(COtxValue&& event) {
    Queue added;
    added.push_back(std::move(event));
    Queue dropped;
    {
        const std::lock_guard guard(sourceLock_);
        if (closed_) return;
        queue_.splice(queue_.end(), added);
        if (queue_.size() > longestQueue_) dropped.splice(dropped.end(), queue_, queue_.begin());
    }
    ringAll();
}

bool EventSource::isClosed() const {
    const std::lock_guard guard(sourceLock_);
    return closed_;
}

void EventSource::ringAll() {
    // Rung without the lock, which the woken thread wants at once.
    bell_->ring();
    std::shared_ptr<const Watchers> watchers;
    {
        const std::lock_guard guard(sourceLock_);
        watchers = watchers_;
    }
    if (watchers == nullptr) return;
    for (const auto& watcher : *watchers) {
        if (const auto bell = watcher.lock()) bell->ring();
    }
}

std::shared_ptr<EventSource> sourceBehind(const COtxValue& value) {
    if (value.Type() != OTX::ValueType::EventSource) return nullptr;
    auto* const source = dynamic_cast<EventSource*>(&value.EventSource());
    if (source == nullptr) return nullptr;
    return {value.GetBehaviourReference(), source};
}

void KindSource::deliver(const COtxValue& name, const COtxValue& value) { enqueue(COtxEvent(kind_, name, value)); }

}  // namespace otx
