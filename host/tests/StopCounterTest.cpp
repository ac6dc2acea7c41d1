// Which flows are stopped, by counting.
#include "program/StopCounter.h"

#include <gtest/gtest.h>

namespace {

using velkotx::host::StopCounter;
using Flows = std::set<StopCounter::Flow>;

TEST(StopCounter, KnowsNoFlowAtFirst) {
    const StopCounter counter;
    EXPECT_FALSE(counter.isKnown(0));
    EXPECT_FALSE(counter.isStopped(0));
    EXPECT_EQ(counter.stoppedFlows(), Flows());
}

TEST(StopCounter, StopsAndResumesInTurn) {
    StopCounter counter;
    counter.stopped(3);
    EXPECT_TRUE(counter.isStopped(3));
    counter.resumed(3);
    EXPECT_FALSE(counter.isStopped(3));
    EXPECT_TRUE(counter.isKnown(3));
    counter.stopped(3);
    EXPECT_TRUE(counter.isStopped(3));
}

TEST(StopCounter, BearsAStopThatIsCountedAheadOfTheResume) {
    StopCounter counter;
    counter.stopped(0);
    counter.stopped(0);  // it was resumed and has stopped again
    counter.resumed(0);
    EXPECT_TRUE(counter.isStopped(0));
    counter.resumed(0);
    EXPECT_FALSE(counter.isStopped(0));
}

TEST(StopCounter, AFlowThatHasEndedIsNotStopped) {
    StopCounter counter;
    counter.stopped(1);
    counter.stopped(2);
    counter.resumed(1);
    counter.ended(1);
    EXPECT_TRUE(counter.hasEnded(1));
    EXPECT_FALSE(counter.hasEnded(2));
    EXPECT_FALSE(counter.hasEnded(7));
    EXPECT_EQ(counter.stoppedFlows(), Flows{2});
}

TEST(StopCounter, ResumesAllThatWereStopped) {
    StopCounter counter;
    counter.stopped(1);
    counter.stopped(2);
    counter.resumedFrom(counter.stops());
    EXPECT_EQ(counter.stoppedFlows(), Flows());
}

TEST(StopCounter, AFlowThatWasResumedWithAllMayHaveStoppedAgain) {
    StopCounter counter;
    counter.stopped(1);
    const StopCounter::Flows before = counter.stops();
    counter.stopped(1);
    counter.resumedFrom(before);
    EXPECT_EQ(counter.stoppedFlows(), Flows{1});
}

TEST(StopCounter, AFlowThatStopsWhileAllAreResumedCountsAsResumed) {
    StopCounter counter;
    counter.stopped(1);
    const StopCounter::Flows before = counter.stops();
    counter.stopped(2);
    counter.resumedFrom(before);
    EXPECT_EQ(counter.stoppedFlows(), Flows());
}

TEST(StopCounter, ACommandThatIsCountedLateTakesNothingBack) {
    StopCounter counter;
    counter.stopped(1);
    const StopCounter::Flows first = counter.stops();
    counter.stopped(1);
    const StopCounter::Flows second = counter.stops();
    counter.resumedFrom(second);
    counter.resumedFrom(first, 1);
    EXPECT_EQ(counter.stoppedFlows(), Flows());
    counter.stopped(1);
    EXPECT_EQ(counter.stoppedFlows(), Flows{1});
}

TEST(StopCounter, ACommandForOneFlowResumesNoOther) {
    StopCounter counter;
    counter.stopped(1);
    counter.stopped(2);
    counter.resumedFrom(counter.stops(), 2);
    EXPECT_EQ(counter.stoppedFlows(), Flows{1});
}

}  // namespace
