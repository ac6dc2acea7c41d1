// Events, their sources, and the sources of a whole run.
#include <otx/event/Events.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <limits>
#include <memory>
#include <thread>
#include <vector>

#include "Thrown.h"
#include "event/OpenSources.h"

namespace {

using OTX::EventKind;
using tests::outOfBounds;
using tests::typeMismatch;

COtxValue waited(const COtxValue& source) {
    COtxValue event;
    EXPECT_TRUE(source.EventSource().Wait(event));
    return event;
}

bool isClosed(const COtxValue& source) {
    COtxValue event = COtxString("untouched");
    const bool closed = !source.EventSource().Wait(event);
    if (closed) {
        EXPECT_EQ(tests::streamed(event), "untouched");
    }
    return closed;
}

std::string next(const COtxValue& source) { return tests::streamed(waited(source)); }

// Waits on another thread, so that the test may act meanwhile; `join` gives what came.
class Waiter {
public:
    explicit Waiter(const COtxValue& source)
        : thread_([this, source] { came_ = source.EventSource().Wait(event_); }) {}
    Waiter(const Waiter&) = delete;
    Waiter& operator=(const Waiter&) = delete;
    ~Waiter() {
        if (thread_.joinable()) thread_.join();
    }

    std::string join() {
        thread_.join();
        return came_ ? tests::streamed(event_) : "closed";
    }

private:
    COtxValue event_;
    bool came_ = false;
    std::thread thread_;
};

// Makes many sources when it dies, as a flow may that a source has woken.
constexpr std::size_t many = 2000;
class MakerOfSources : public COtxValueBehaviour {
public:
    explicit MakerOfSources(std::vector<COtxValue>& made)
        : COtxValueBehaviour(OTX::ValueType::FlashSession), made_(made) {}
    MakerOfSources(const MakerOfSources&) = delete;
    MakerOfSources& operator=(const MakerOfSources&) = delete;
    ~MakerOfSources() override {
        for (std::size_t i = 0; i < many; ++i) made_.push_back(COtxSignalEventSource(EventKind::DiagService));
    }

private:
    std::vector<COtxValue>& made_;
};

// The first of many by its address, which those that come later in the places of the others are behind.
template <class Make>
COtxValue firstByAddress(const Make& make) {
    std::vector<COtxValue> sources;
    for (std::size_t i = 0; i < many; ++i) sources.push_back(make());
    return *std::min_element(sources.begin(), sources.end(), [](const COtxValue& left, const COtxValue& right) {
        return std::less<>()(&left.EventSource(), &right.EventSource());
    });
}

}  // namespace

TEST(Event, TellsKindValueAndName) {
    const COtxEvent event(EventKind::MonitorChange, COtxString("speed"), COtxInt(12));
    EXPECT_EQ(event.Type(), OTX::ValueType::Event);
    EXPECT_EQ(event.Event().Kind(), 2);
    EXPECT_EQ(event.Event().Name().String(), "speed");
    EXPECT_EQ(event.Event().Value().Int(), 12);
    EXPECT_EQ(event.ToString().String(), "MonitorChange(speed, 12)");
    EXPECT_EQ(COtxEvent(EventKind::TimerExpired, COtxValue()).ToString().String(), "TimerExpired");
    EXPECT_EQ(COtxEvent(EventKind::DiagService, COtxInt(1)).ToString().String(), "DiagService(1)");
    EXPECT_EQ(static_cast<int>(EventKind::ScreenClosed), 4);
    EXPECT_EQ(static_cast<int>(EventKind::ServiceProvider), 5);
    EXPECT_EQ(static_cast<int>(EventKind::ServiceExecutionFinished), 6);
    EXPECT_EQ(static_cast<int>(EventKind::ThresholdExceeded), 7);
    EXPECT_EQ(tests::json(event), R"json("MonitorChange(speed, 12)")json");
    EXPECT_EQ(COtxEvent(EventKind::MonitorChange, COtxValue(), COtxList()).ToString().String(),
              "MonitorChange(<List>)");
    EXPECT_EQ(OTX_THROWN_KIND(COtxEvent(EventKind::MonitorChange, COtxInt(1), COtxInt(1))), typeMismatch);
}

TEST(EventSource, KeepsEventsInOrderUntilSomebodyWaits) {
    const COtxSignalEventSource source(EventKind::DiagService);
    EXPECT_EQ(source.Type(), OTX::ValueType::EventSource);
    source.EventSource().Put(COtxInt(1));
    source.EventSource().Put(COtxInt(2));
    source.EventSource().Signal();
    EXPECT_EQ(next(source), "DiagService(1)");
    EXPECT_EQ(next(source), "DiagService(2)");
    EXPECT_EQ(next(source), "DiagService");
}

TEST(EventSource, ClosingIsFinalForPresentAndFutureWaits) {
    const COtxHMIScreenClosedEventSource source;
    Waiter first(source);
    Waiter second(source);
    source.EventSource().Close();
    EXPECT_EQ(first.join(), "closed");
    EXPECT_EQ(second.join(), "closed");
    source.EventSource().Put(COtxInt(1));
    EXPECT_TRUE(isClosed(source));
    source.EventSource().Close();
    EXPECT_TRUE(isClosed(source));
}

TEST(EventSource, WhatIsQueuedIsLostWhenItCloses) {
    const COtxHMIScreenClosedEventSource source;
    source.EventSource().Put(COtxInt(1));
    EXPECT_FALSE(COtxEventSource::IsClosed(source));
    source.EventSource().Close();
    EXPECT_TRUE(COtxEventSource::IsClosed(source));
    EXPECT_TRUE(isClosed(source));
    EXPECT_FALSE(COtxEventSource::IsClosed(COtxInt(1)));
}

TEST(EventSource, AnEventWakesOneWaiterOnly) {
    const COtxSignalEventSource source(EventKind::DiagService);
    Waiter first(source);
    Waiter second(source);
    source.EventSource().Put(COtxInt(1));
    source.EventSource().Put(COtxInt(2));
    const std::string one = first.join();
    const std::string other = second.join();
    EXPECT_NE(one, other);
}

TEST(EventSource, DropsTheOldestWhenNobodyEverWaits) {
    const COtxSignalEventSource source(EventKind::DiagService);
    constexpr int kept = 65536;
    for (int number = 0; number < kept + 10; ++number) source.EventSource().Put(COtxInt(number));
    EXPECT_EQ(next(source), "DiagService(10)");
}

TEST(ScreenClosed, WakesEveryWaiterWhenTheScreenHasGone) {
    const COtxHMIScreenClosedEventSource source;
    Waiter first(source);
    Waiter second(source);
    source.EventSource().Signal();
    EXPECT_EQ(first.join(), "ScreenClosed");
    EXPECT_EQ(second.join(), "ScreenClosed");
    EXPECT_EQ(next(source), "ScreenClosed") << "and all that come later";
}

TEST(ScreenClosed, GivesWhatWasPutFirst) {
    const COtxHMIScreenClosedEventSource source;
    source.EventSource().Put(COtxString("panel"));
    source.EventSource().Signal();
    EXPECT_EQ(next(source), "ScreenClosed(panel)");
    EXPECT_EQ(next(source), "ScreenClosed");
    source.EventSource().Close();
    EXPECT_TRUE(isClosed(source));
}

TEST(MonitorChange, KeepsAsManyEventsAsItWasMadeFor) {
    OtxVariable variable{COtxInt(0)};
    const COtxMonitorChangeEventSource source(70000);
    variable.AddEventSource("v", source);
    for (int number = 0; number < 70001; ++number) variable.Set(COtxInt(number));
    EXPECT_EQ(next(source), "MonitorChange(v, 1)");
}

TEST(EventSource, OnlyAMultiSourceTakesMembers) {
    const COtxSignalEventSource source(EventKind::DiagService);
    EXPECT_FALSE(source.EventSource().Add(COtxSignalEventSource(EventKind::DiagService)));
}

TEST(MonitorChange, FiresAtEachWriteWithNameAndValue) {
    OtxVariable variable{COtxInt(0)};
    const COtxMonitorChangeEventSource source;
    variable.AddEventSource("v", source);
    variable.Set(COtxInt(1));
    const COtxValue event = waited(source);
    EXPECT_EQ(event.Event().Kind(), 2);
    EXPECT_EQ(event.Event().Name().String(), "v");
    EXPECT_EQ(event.Event().Value().Int(), 1);
    // A write of the same value is a write.
    variable.Set(COtxInt(1));
    EXPECT_EQ(next(source), "MonitorChange(v, 1)");
}

TEST(ThresholdExceeded, FiresWhenTheVariableLeavesTheRange) {
    OtxVariable variable{COtxInt(5)};
    const COtxThresholdExceededEventSource source(COtxInt(0), COtxFloat(10), variable.Get());
    variable.AddEventSource("v", source);
    variable.Set(COtxInt(10));
    variable.Set(COtxInt(11));
    variable.Set(COtxInt(12));
    variable.Set(COtxInt(0));
    variable.Set(COtxFloat(-0.5));
    source.EventSource().Put(COtxString("end"));
    EXPECT_EQ(next(source), "ThresholdExceeded(v, 11)");
    EXPECT_EQ(next(source), "ThresholdExceeded(v, -0.5)");
    EXPECT_EQ(next(source), "ThresholdExceeded(end)");
}

TEST(ThresholdExceeded, AVariableThatStartsOutsideMustComeInFirst) {
    OtxVariable variable{COtxInt(20)};
    const COtxThresholdExceededEventSource source(COtxInt(0), COtxInt(10), variable.Get());
    variable.AddEventSource("v", source);
    variable.Set(COtxInt(30));
    variable.Set(COtxInt(5));
    variable.Set(COtxInt(40));
    EXPECT_EQ(next(source), "ThresholdExceeded(v, 40)");
}

TEST(Timer, FiresNotBeforeItsTimeout) {
    const auto begin = std::chrono::steady_clock::now();
    const COtxTimerExpiredEventSource source(COtxInt(30));
    EXPECT_EQ(next(source), "TimerExpired");
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(30));
}

TEST(Timer, AnExpiredTimerStaysExpired) {
    const COtxTimerExpiredEventSource source(COtxFloat(0.5));
    EXPECT_EQ(waited(source).Event().Kind(), 1);
    EXPECT_EQ(waited(source).Event().Kind(), 1);
    source.EventSource().Close();
    EXPECT_TRUE(isClosed(source));
}

TEST(Timer, AClosedTimerDoesNotKeepItsWaiter) {
    const COtxTimerExpiredEventSource source{COtxInt(std::numeric_limits<long long>::max())};
    Waiter waiter(source);
    source.EventSource().Close();
    EXPECT_EQ(waiter.join(), "closed");
}

TEST(Timer, OfANegativeTimeHasExpiredAtOnce) {
    EXPECT_EQ(next(COtxTimerExpiredEventSource(COtxInt(-1))), "TimerExpired");
    EXPECT_EQ(next(COtxTimerExpiredEventSource(COtxFloat(-0.25))), "TimerExpired");
    EXPECT_EQ(next(COtxTimerExpiredEventSource(COtxFloat(-std::numeric_limits<double>::infinity()))), "TimerExpired");
}

TEST(Timer, TakesNumbersOfMillisecondsOnly) {
    EXPECT_EQ(OTX_THROWN_KIND(COtxTimerExpiredEventSource(COtxFloat(std::numeric_limits<double>::quiet_NaN()))),
              outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(COtxTimerExpiredEventSource(COtxString("10"))), typeMismatch);
    EXPECT_EQ(next(COtxTimerExpiredEventSource(COtxInt(0))), "TimerExpired");
}

TEST(MultiSource, AnswersTheFirstEventOfAnyMember) {
    const COtxSignalEventSource first(EventKind::DiagService);
    const COtxSignalEventSource second(EventKind::ServiceProvider);
    const COtxMultiEventSource multi;
    EXPECT_TRUE(multi.EventSource().Add(first));
    EXPECT_TRUE(multi.EventSource().Add(second));
    Waiter waiter(multi);
    second.EventSource().Put(COtxInt(1));
    EXPECT_EQ(waiter.join(), "ServiceProvider(1)");
    first.EventSource().Put(COtxInt(2));
    EXPECT_EQ(next(multi), "DiagService(2)");
}

TEST(MultiSource, TakesEventSourcesOnly) {
    const COtxMultiEventSource multi;
    EXPECT_FALSE(multi.EventSource().Add(COtxInt(1)));
    EXPECT_FALSE(multi.EventSource().Add(COtxValue()));
    EXPECT_FALSE(multi.EventSource().Add(COtxList()));
}

TEST(MultiSource, WaitsForTimersToo) {
    const COtxSignalEventSource silent(EventKind::DiagService);
    const COtxMultiEventSource multi;
    multi.EventSource().Add(silent);
    multi.EventSource().Add(COtxTimerExpiredEventSource(COtxInt(60000)));
    multi.EventSource().Add(COtxTimerExpiredEventSource(COtxInt(10)));
    EXPECT_EQ(next(multi), "TimerExpired");
}

TEST(MultiSource, IsClosedWithAnyMember) {
    const COtxSignalEventSource first(EventKind::DiagService);
    const COtxSignalEventSource second(EventKind::DiagService);
    const COtxMultiEventSource multi;
    multi.EventSource().Add(first);
    multi.EventSource().Add(second);
    Waiter waiter(multi);
    second.EventSource().Close();
    EXPECT_EQ(waiter.join(), "closed");
    // What other members have comes first.
    first.EventSource().Put(COtxInt(1));
    EXPECT_EQ(next(multi), "DiagService(1)");
    EXPECT_TRUE(isClosed(multi));
}

TEST(MultiSource, LeavesItsMembersOpen) {
    const COtxSignalEventSource source(EventKind::DiagService);
    {
        const COtxMultiEventSource multi;
        multi.EventSource().Add(source);
        multi.EventSource().Close();
        EXPECT_TRUE(isClosed(multi));
    }
    source.EventSource().Put(COtxInt(1));
    EXPECT_EQ(next(source), "DiagService(1)");
}

TEST(MultiSource, AsAMemberStandsForItsMembers) {
    const COtxSignalEventSource source(EventKind::DiagService);
    const COtxMultiEventSource inner;
    const COtxMultiEventSource outer;
    inner.EventSource().Add(source);
    EXPECT_TRUE(outer.EventSource().Add(inner));
    EXPECT_TRUE(outer.EventSource().Add(outer));
    Waiter waiter(outer);
    source.EventSource().Put(COtxInt(1));
    EXPECT_EQ(waiter.join(), "DiagService(1)");
}

TEST(MultiSource, OfferedOneEventManyTimesLosesNone) {
    const COtxSignalEventSource source(EventKind::DiagService);
    constexpr int events = 2000;
    std::thread producer([&] {
        for (int number = 0; number < events; ++number) source.EventSource().Put(COtxInt(number));
    });
    for (int number = 0; number < events; ++number) {
        const COtxMultiEventSource multi;
        multi.EventSource().Add(source);
        EXPECT_EQ(waited(multi).Event().Value().Int(), number);
    }
    producer.join();
}

TEST(CloseAll, ClosesTheSourcesOfTheGroupAlone) {
    std::thread::id root;
    COtxValue foreign;
    std::thread([&] {
        foreign = COtxSignalEventSource(EventKind::DiagService);
        foreign.EventSource().Put(COtxInt(1));
    }).join();
    std::thread([&] {
        root = std::this_thread::get_id();
        COtxEventSource::ThreadGroup().AddRoot();
        const COtxSignalEventSource own(EventKind::DiagService);
        COtxValue ofLane;
        std::thread([&] {
            COtxEventSource::ThreadGroup().Join(root);
            ofLane = COtxTimerExpiredEventSource(COtxInt(60000));
            COtxEventSource::ThreadGroup().Leave();
        }).join();
        Waiter waiter(ofLane);
        std::thread([&] { COtxEventSource::CloseAll(root); }).join();
        EXPECT_EQ(waiter.join(), "closed");
        EXPECT_TRUE(isClosed(own));
        const COtxSignalEventSource later(EventKind::DiagService);
        later.EventSource().Put(COtxInt(2));
        EXPECT_EQ(next(later), "DiagService(2)");
        COtxEventSource::ThreadGroup().RemoveRoot(root);
    }).join();
    EXPECT_EQ(next(foreign), "DiagService(1)");
}

TEST(PutAll, DeliversToEveryOpenSourceOfTheGroup) {
    const std::thread::id self = std::this_thread::get_id();
    const COtxSignalEventSource signal(EventKind::ServiceProvider);
    const COtxMonitorChangeEventSource monitor;
    const COtxMultiEventSource multi;
    multi.EventSource().Add(signal);
    COtxEventSource::PutAll(self, COtxInt(1), COtxString("name"));
    EXPECT_EQ(next(multi), "ServiceProvider(name, 1)");
    EXPECT_EQ(next(monitor), "MonitorChange(name, 1)");
    // A parameter that is no String names nothing.
    COtxEventSource::PutAll(self, COtxInt(1), COtxInt(2));
    EXPECT_EQ(next(multi), "ServiceProvider(1)");
    EXPECT_EQ(next(monitor), "MonitorChange(1)");
    // Absent ones count as empty.
    COtxEventSource::PutAll(self, COtxValue(), COtxValue());
    EXPECT_EQ(next(signal), "ServiceProvider");
}

TEST(CloseAll, LeavesSourcesOpenThatAreMadeMeanwhile) {
    std::vector<COtxValue> made;
    const COtxValue source = firstByAddress([] { return COtxSignalEventSource(EventKind::DiagService); });
    source.EventSource().Put(COtxValue(std::make_shared<MakerOfSources>(made)));
    COtxEventSource::CloseAll(std::this_thread::get_id());
    EXPECT_TRUE(COtxEventSource::IsClosed(source));
    ASSERT_EQ(made.size(), many);
    for (const COtxValue& later : made) EXPECT_FALSE(COtxEventSource::IsClosed(later));
}

TEST(PutAll, DeliversNothingToSourcesThatAreMadeMeanwhile) {
    std::vector<COtxValue> made;
    const COtxValue source = firstByAddress([] { return COtxMonitorChangeEventSource(1); });
    source.EventSource().Put(COtxValue(std::make_shared<MakerOfSources>(made)));
    COtxEventSource::PutAll(std::this_thread::get_id(), COtxInt(1), COtxValue());
    EXPECT_EQ(next(source), "MonitorChange(1)");
    ASSERT_EQ(made.size(), many);
    for (const COtxValue& later : made) {
        later.EventSource().Put(COtxInt(2));
        EXPECT_EQ(next(later), "DiagService(2)");
    }
}

TEST(CloseAll, BearsSourcesThatComeAndGo) {
    const std::thread::id self = std::this_thread::get_id();
    std::thread closer([&] {
        for (int round = 0; round < 2000; ++round) COtxEventSource::CloseAll(self);
    });
    for (int round = 0; round < 2000; ++round) {
        const COtxMonitorChangeEventSource source;
        source.EventSource().Put(COtxInt(round));
    }
    closer.join();
}
