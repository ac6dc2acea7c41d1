// Event sources that are made, waited for, fired and closed by many threads at once.
#include "../Until.h"
#include "Stress.h"

#include <otx/event/Events.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>
#include <otx/value/OtxVariable.h>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

using namespace api;
using namespace stress;

constexpr int kinds = 5;

// A source that some other thread can close through the group: none is a member that only the multi-source knows.
COtxValue makeSource(std::size_t kind, OtxVariable& variable) {
    switch (kind % kinds) {
        case 0: return COtxSignalEventSource(OTX::EventKind::DiagService);
        case 1: return COtxTimerExpiredEventSource(COtxInt(3600000));
        case 2: {
            const COtxMonitorChangeEventSource source;
            variable.AddEventSource("v", source);
            return source;
        }
        case 3: {
            const COtxThresholdExceededEventSource source(COtxInt(0), COtxInt(10), COtxInt(5));
            variable.AddEventSource("v", source);
            return source;
        }
        default: {
            const COtxMultiEventSource multi;
            const COtxMonitorChangeEventSource source;
            variable.AddEventSource("v", source);
            multi.EventSource().Add(source);
            multi.EventSource().Add(COtxTimerExpiredEventSource(COtxInt(3600000)));
            return multi;
        }
    }
}

class Round {
public:
    explicit Round(std::mt19937_64& random) {
        COtxEventSource::ThreadGroup().AddRoot();
        for (std::size_t kind = 0; kind < 2 * kinds; ++kind) sources_.push_back(makeSource(kind, variable_));
        for (const COtxValue& source : sources_)
            for (int waiter = 0; waiter < 2; ++waiter) start([this, source] { wait(source); });
        start([this, own = std::mt19937_64(random())]() mutable { write(own); });
        start([this, own = std::mt19937_64(random())]() mutable { put(own); });
        start([this, own = std::mt19937_64(random())]() mutable { comeAndGo(own); });
        dawdle(random, 16);
        COtxEventSource::CloseAll(root_);
        EXPECT_TRUE(isReached([this] { return waiting_ == 0; })) << "a wait is left";
        isOver_ = true;
        for (auto& thread : threads_) thread.join();
        for (const COtxValue& source : sources_) {
            COtxValue event;
            EXPECT_FALSE(source.EventSource().Wait(event));
        }
        COtxEventSource::ThreadGroup().RemoveRoot(root_);
    }
    Round(const Round&) = delete;
    Round& operator=(const Round&) = delete;

private:
    template <class Work>
    void start(Work work) {
        threads_.emplace_back([this, work]() mutable {
            COtxEventSource::ThreadGroup().Join(root_);
            work();
            COtxEventSource::ThreadGroup().Leave();
        });
    }

    void wait(const COtxValue& source) {
        COtxValue event;
        while (source.EventSource().Wait(event)) EXPECT_GT(event.Event().Kind(), 0);
        --waiting_;
    }

    void write(std::mt19937_64& random) {
        while (!isOver_) {
            variable_.Set(COtxInt(static_cast<long long>(random() % 20)));
            dawdle(random, 8);
        }
    }

    void put(std::mt19937_64& random) {
        while (!isOver_) {
            if (random() % 2 == 0)
                sources_[random() % sources_.size()].EventSource().Put(COtxInt(1));
            else
                COtxEventSource::PutAll(root_, COtxInt(2), COtxString("name"));
            dawdle(random, 8);
        }
    }

    void comeAndGo(std::mt19937_64& random) {
        while (!isOver_) {
            const COtxValue source = makeSource(random() % kinds, variable_);
            if (random() % 2 == 0) source.EventSource().Signal();
            if (random() % 4 == 0) source.EventSource().Close();
        }
    }

    const std::thread::id root_ = std::this_thread::get_id();
    OtxVariable variable_{COtxInt(0)};
    std::vector<COtxValue> sources_;
    std::atomic<int> waiting_{2 * 2 * kinds};
    std::atomic<bool> isOver_{false};
    std::vector<std::thread> threads_;
};

TEST(SourceStress, ComeGoFireAndCloseAtOnce) {
    auto random = generator();
    for (int round = 0; round < 25 * factor() && !testing::Test::HasFailure(); ++round) Round{random};
}

}  // namespace
