// Event sources used from several threads, without a run.
#include "ThreadCount.h"

#include <otx/event/Events.h>
#include <otx/value/COtxFloat.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>
#include <otx/value/OtxVariable.h>

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace api;
using OTX::EventKind;

std::string waited(const COtxValue& source) {
    COtxValue event = COtxString("untouched");
    const bool came = source.EventSource().Wait(event);
    return (came ? "" : "closed ") + static_cast<const std::string&>(event.ToString().String());
}

TEST(Source, GivesEachOfManyWaitersOneEvent) {
    constexpr int count = 10;
    const COtxSignalEventSource source(EventKind::DiagService);
    std::mutex seenLock;
    std::multiset<std::string> seen;
    std::vector<std::thread> waiters;
    for (int number = 0; number < count; ++number)
        waiters.emplace_back([&] {
            std::string text = waited(source);
            const std::lock_guard guard(seenLock);
            seen.insert(std::move(text));
        });
    std::multiset<std::string> expected;
    for (int number = 0; number < count; ++number) {
        source.EventSource().Put(COtxInt(number));
        expected.insert("DiagService(" + std::to_string(number) + ")");
    }
    for (auto& waiter : waiters) waiter.join();
    EXPECT_EQ(seen, expected);
    source.EventSource().Close();
    EXPECT_EQ(waited(source), "closed untouched");
    EXPECT_EQ(waited(source), "closed untouched");
}

TEST(Source, OfManyTimersTakesNoThreads) {
    constexpr int count = 100;
    const std::size_t threads = threadCount();
    std::vector<std::pair<COtxValue, std::chrono::steady_clock::time_point>> timers;
    // In no order of their ends.
    for (int number = 0; number < count; ++number) {
        const int milliseconds = (number * 37) % count + 1;
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
        timers.emplace_back(COtxTimerExpiredEventSource(COtxInt(milliseconds)), end);
    }
    EXPECT_LE(threadCount(), threads + 1) << "one for all of them at most";
    for (const auto& [timer, end] : timers) {
        EXPECT_EQ(waited(timer), "TimerExpired");
        EXPECT_GE(std::chrono::steady_clock::now(), end);
    }
}

TEST(Source, LosesNoWriteOfTwoThreads) {
    constexpr int count = 10000;
    OtxVariable variable{COtxInt(0)};
    const COtxMonitorChangeEventSource source;
    variable.AddEventSource("v", source);
    const auto write = [&](int sign) {
        for (int number = 1; number <= count; ++number) variable.Set(COtxInt(sign * number));
    };
    std::thread up(write, 1);
    std::thread down(write, -1);
    long long lastUp = 0;
    long long lastDown = 0;
    for (int number = 0; number < 2 * count; ++number) {
        COtxValue event;
        ASSERT_TRUE(source.EventSource().Wait(event));
        const long long value = event.Event().Value().Int();
        // Those of one thread come in its order.
        if (value > 0) {
            EXPECT_EQ(value, ++lastUp);
        } else {
            EXPECT_EQ(value, --lastDown);
        }
    }
    up.join();
    down.join();
    source.EventSource().Put(COtxString("end"));
    EXPECT_EQ(waited(source), "MonitorChange(end)") << "and none came twice";
}

TEST(Source, OfAThresholdTakesTheOrderOfValuesOfAnyType) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto firedOf = [](const COtxValue& lower, const COtxValue& upper, const std::vector<COtxValue>& values) {
        OtxVariable variable{values.front()};
        const COtxThresholdExceededEventSource source(lower, upper, variable.Get());
        variable.AddEventSource("v", source);
        for (const COtxValue& value : values) EXPECT_NO_THROW(variable.Set(value));
        source.EventSource().Put(COtxString("end"));
        std::string fired;
        for (;;) {
            COtxValue event;
            source.EventSource().Wait(event);
            if (event.Event().Name().String().empty()) return fired;
            fired += std::string(event.Event().Value().ToString().String()) + ' ';
        }
    };
    EXPECT_EQ(
        firedOf(COtxInt(0), COtxFloat(10.5), {COtxInt(0), COtxFloat(10.5), COtxInt(11), COtxFloat(0.25), COtxFloat(-0.25)}),
        "11 -0.25 ");
    EXPECT_EQ(firedOf(COtxString("b"), COtxString("d"),
                      {COtxString("c"), COtxString("d"), COtxString("e"), COtxString("b"), COtxInt(5)}),
              "e 5 ");
    EXPECT_EQ(firedOf(COtxFloat(nan), COtxFloat(nan), {COtxInt(0), COtxFloat(nan), COtxInt(1)}), "1 ")
        << "what is no number equals itself and lies below all numbers";
    EXPECT_EQ(firedOf(COtxInt(10), COtxInt(0), {COtxInt(5), COtxInt(20), COtxInt(-5)}), "");
}

TEST(Source, OfAThreadThatHasEndedIsNotThatOfANewThreadWithItsNumber) {
    COtxValue source;
    std::thread::id number;
    std::thread maker([&] {
        source = COtxSignalEventSource(EventKind::DiagService);
        number = std::this_thread::get_id();
    });
    maker.join();
    bool isSame = false;
    for (int attempt = 0; attempt < 1000 && !isSame; ++attempt) {
        std::thread newcomer([&] {
            isSame = std::this_thread::get_id() == number;
            if (isSame) COtxEventSource::CloseAll(number);
        });
        newcomer.join();
    }
    if (!isSame) GTEST_SKIP() << "the system gives no number twice";
    source.EventSource().Signal();
    EXPECT_EQ(waited(source), "DiagService");
}

TEST(Source, OfAThreadInNoGroupIsClosedWithThatThreadOnly) {
    COtxValue source;
    std::string ofOther;
    std::thread maker([&] {
        source = COtxSignalEventSource(EventKind::DiagService);
        std::thread other([] { COtxEventSource::CloseAll(std::this_thread::get_id()); });
        other.join();
        source.EventSource().Signal();
        ofOther = waited(source);
        COtxEventSource::CloseAll(std::this_thread::get_id());
    });
    maker.join();
    EXPECT_EQ(ofOther, "DiagService");
    EXPECT_EQ(waited(source), "closed untouched");
}

}  // namespace
