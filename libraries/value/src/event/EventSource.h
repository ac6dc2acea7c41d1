// What all event sources of the library share: a queue, an end, and those who wait.
#pragma once

#include <otx/event/IEvent.h>
#include <otx/event/IEventSource.h>
#include <otx/value/COtxValue.h>
#include <otx/value/Pool.h>

#include <chrono>
#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace otx {

using Clock = std::chrono::steady_clock;

// What wakes one who waits. A source rings the bells of all that watch it after every change; a bell outlives its owner
// until the last source has noticed.
class Bell {
public:
    void ring();
    // Returns when it rang since the last call, or at that time. Used by several threads, each ring wakes all of them.
    void await(std::uint64_t seen, const std::optional<Clock::time_point>& until);
    std::uint64_t rings() const;

private:
    // Guards rings_.
    mutable std::mutex bellLock_;
    std::condition_variable rang_;
    std::uint64_t rings_ = 0;
};

// Lives in the behaviour of its value; it can't be that itself, since both have an operation Add.
class EventSource : public OTX::IEventSource {
public:
    // Older events make room beyond this number, so that a source that nobody waits on can't grow for ever; a source may be
    // made with another one.
    static constexpr std::size_t longestQueue = 65536;

    EventSource(const EventSource&) = delete;
    EventSource& operator=(const EventSource&) = delete;
    ~EventSource() override;

    bool Wait(COtxValue& event) final;
    void Changed(const COtxValue& name, const COtxValue& value) override;
    void Put(const COtxValue& value) override;
    void Signal() override;
    bool Add(const COtxValue& source) override;
    // Needs no memory, and so never throws.
    void Close() override;

    // Delivers an event of the source's own kind.
    virtual void deliver(const COtxValue& name, const COtxValue& value);

    // What one look at the source finds.
    enum class Look { Nothing, Event, Closed };
    virtual Look look(COtxValue& event);
    // When the source will fire by itself.
    virtual std::optional<Clock::time_point> deadline() const;
    bool isClosed() const;
    // The bell is rung after every event and at the end.
    virtual void watch(const std::shared_ptr<Bell>& bell);

protected:
    explicit EventSource(std::size_t ownLongestQueue = longestQueue);

    void enqueue(COtxValue&& event);
    // Wakes all who wait; never throws.
    void ringAll();
    const std::shared_ptr<Bell>& bell() const noexcept { return bell_; }

private:
    // A list, unlike other queues, is handed over without memory.
    using Queue = std::list<COtxValue, PoolAllocator<COtxValue>>;
    using Watchers = std::vector<std::weak_ptr<Bell>>;

    const std::size_t longestQueue_;
    // Guards what follows, up to watchers_.
    mutable std::mutex sourceLock_;
    Queue queue_;
    bool closed_ = false;
    // Of multi-sources that this is a member of; null for none. Replaced as a whole.
    std::shared_ptr<const Watchers> watchers_;

    // For those who wait on this source itself.
    const std::shared_ptr<Bell> bell_ = std::make_shared<Bell>();
};

// The behaviour of a value that is such a source.
template <class Source>
class EventSourceBehaviour final : public COtxValueBehaviour {
public:
    template <class... Arguments>
    explicit EventSourceBehaviour(Arguments&&... arguments)
        : COtxValueBehaviour(OTX::ValueType::EventSource), source_(std::forward<Arguments>(arguments)...) {}

    OTX::IEventSource& IEventSource() override { return source_; }

private:
    Source source_;
};

// The library's source behind a value, which keeps the value's behaviour alive; nothing for other values.
std::shared_ptr<EventSource> sourceBehind(const COtxValue& value);

// A source whose events have one kind.
class KindSource : public EventSource {
public:
    void deliver(const COtxValue& name, const COtxValue& value) override;

protected:
    explicit KindSource(OTX::EventKind kind, std::size_t ownLongestQueue = longestQueue)
        : EventSource(ownLongestQueue), kind_(kind) {}

private:
    const OTX::EventKind kind_;
};

}  // namespace otx
