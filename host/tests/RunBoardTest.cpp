// What the debugger waits for. Each wait that a test calls on its own thread returns without help from another.
#include "program/debug/RunBoard.h"

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <thread>

namespace {

using namespace std::chrono_literals;
using velkotx::host::Outcome;
using velkotx::host::RunBoard;

std::string text(const std::vector<RunBoard::Stop>& stops) {
    std::string text;
    for (const RunBoard::Stop& stop : stops)
        text += std::to_string(stop.flow) + ":" + stop.node + " ";
    return text;
}

TEST(RunBoard, HandsOutEachStopOnceInTheOrderOfTheFlows) {
    RunBoard board;
    EXPECT_TRUE(board.flowStopped(2, "b"));
    EXPECT_TRUE(board.flowStopped(1, "a"));
    EXPECT_EQ(text(board.takeStops()), "1:a 2:b ");
    EXPECT_EQ(text(board.takeStops()), "");
    EXPECT_EQ(board.nodeOf(2), "b");
    EXPECT_EQ(board.nodeOf(3), "");
}

TEST(RunBoard, KnowsAFlowFromItsFirstStop) {
    RunBoard board;
    EXPECT_TRUE(board.flowStopped(0, "a"));
    board.resumed(0, 0);
    EXPECT_FALSE(board.flowStopped(0, "b"));
}

TEST(RunBoard, AStopThatIsOverIsNotHandedOut) {
    RunBoard board;
    board.flowStopped(0, "a");
    board.resumed(0, 0);
    EXPECT_EQ(text(board.takeStops()), "");
    board.flowStopped(0, "b");
    EXPECT_EQ(text(board.takeStops()), "0:b ");
}

TEST(RunBoard, WaitsUntilTheResumedFlowStops) {
    RunBoard board;
    board.flowStopped(0, "a");
    board.takeStops();
    board.beginResume();
    board.resumed(0, 0);
    auto waiting = std::async(std::launch::async, [&] { return board.waitForResumed(); });
    board.flowStopped(0, "b");
    EXPECT_TRUE(waiting.get());
    EXPECT_EQ(text(board.takeStops()), "0:b ");
}

TEST(RunBoard, IsContentWithAStopThatCameBeforeTheResumeWasCounted) {
    RunBoard board;
    board.flowStopped(0, "a");
    board.beginResume();
    board.flowStopped(0, "b");
    board.resumed(0, 0);
    EXPECT_TRUE(board.waitForResumed());
    EXPECT_EQ(text(board.takeStops()), "0:b ");
}

TEST(RunBoard, WaitsForAllThatWereResumed) {
    RunBoard board;
    board.flowStopped(1, "a");
    board.flowStopped(2, "b");
    board.beginResume();
    board.resumed(1, 0);
    board.resumed(2, 0);
    board.flowStopped(1, "c");
    auto waiting = std::async(std::launch::async, [&] { return board.waitForResumed(); });
    board.flowStopped(2, "d");
    EXPECT_TRUE(waiting.get());
    EXPECT_EQ(text(board.takeStops()), "1:c 2:d ");
}

TEST(RunBoard, AFlowThatEndsIsNotWaitedForWhileAnotherIsStopped) {
    RunBoard board;
    board.flowStopped(1, "a");
    board.flowStopped(2, "b");
    board.beginResume();
    board.resumed(1, 0);
    board.flowEnded(1);
    EXPECT_TRUE(board.waitForResumed());
    EXPECT_EQ(board.endedFlows(), std::vector<RunBoard::Flow>{1});
}

TEST(RunBoard, WhenAllHaveEndedTheFlowThatWaitedForThemIsWaitedFor) {
    RunBoard board;
    board.flowStopped(1, "a");
    board.beginResume();
    board.resumed(1, 0);
    board.flowEnded(1);
    auto waiting = std::async(std::launch::async, [&] { return board.waitForResumed(); });
    board.flowStopped(0, "b");
    EXPECT_TRUE(waiting.get());
    EXPECT_EQ(text(board.takeStops()), "0:b ");
}

TEST(RunBoard, AStopOfAnotherFlowEndsTheWait) {
    RunBoard board;
    board.flowStopped(0, "a");
    board.beginResume();
    board.resumed(0, 0);
    board.flowStopped(1, "lane");  // flow 0 is in a Parallel now
    EXPECT_TRUE(board.waitForResumed());
}

TEST(RunBoard, KnowsWhoWasResumed) {
    RunBoard board;
    EXPECT_FALSE(board.someFlowWasResumed({}));
    board.flowStopped(1, "a");
    board.flowStopped(2, "b");
    EXPECT_FALSE(board.someFlowWasResumed({}));
    board.resumed(1, 0);
    EXPECT_TRUE(board.someFlowWasResumed({}));
    EXPECT_TRUE(board.someFlowWasResumed(1));
    EXPECT_FALSE(board.someFlowWasResumed(2));
    EXPECT_FALSE(board.someFlowWasResumed(3));
    board.flowEnded(1);
    EXPECT_FALSE(board.someFlowWasResumed({}));
}

TEST(RunBoard, TheLanesStandForTheFlowThatStepsIntoThem) {
    RunBoard board;
    board.flowStopped(0, "parallel");
    board.beginResume();
    board.resumed(0, 2);
    board.flowStopped(2, "right");
    auto waiting = std::async(std::launch::async, [&] { return board.waitForResumed(); });
    board.flowStopped(1, "left");
    EXPECT_TRUE(waiting.get());
    EXPECT_EQ(text(board.takeStops()), "1:left 2:right ");
}

TEST(RunBoard, TheEndOfTheRunEndsEveryWait) {
    RunBoard board;
    board.flowStopped(0, "a");
    board.beginResume();
    board.resumed(0, 0);
    board.runEnded({Outcome::Kind::cancelled, COtxValue(), "cancelled", {}});
    EXPECT_TRUE(board.waitForResumed());
    EXPECT_TRUE(board.waitForStop({}));
    EXPECT_TRUE(board.waitForEnd());
    EXPECT_TRUE(board.waitForEnd(0ms));
    EXPECT_TRUE(board.hasEnded());
    EXPECT_EQ(board.outcome().kind, Outcome::Kind::cancelled);
}

TEST(RunBoard, TheTimeLimitEndsAWait) {
    RunBoard board;
    EXPECT_FALSE(board.waitForStop(0ms));
    EXPECT_FALSE(board.waitForEnd(0ms));
    board.flowStopped(0, "a");
    EXPECT_TRUE(board.waitForStop(0ms));
}

TEST(RunBoard, CtrlCTwiceEndsAWait) {
    RunBoard board;
    board.flowStopped(0, "a");
    board.beginResume();
    board.resumed(0, 0);
    board.interrupted();
    board.interrupted();
    EXPECT_FALSE(board.waitForResumed());
    EXPECT_FALSE(board.waitForStop({}));
    EXPECT_FALSE(board.waitForEnd());
}

TEST(RunBoard, CtrlCOnceIsContentWithTheFirstStop) {
    RunBoard board;
    board.flowStopped(1, "a");
    board.flowStopped(2, "b");
    board.takeStops();
    board.beginResume();
    board.resumed(1, 0);
    board.resumed(2, 0);
    board.interrupted();
    board.flowStopped(2, "c");  // flow 1 waits for something and doesn't stop
    EXPECT_TRUE(board.waitForResumed());
}

TEST(RunBoard, CtrlCCountsFromTheLastResume) {
    RunBoard board;
    board.interrupted();
    board.interrupted();
    board.flowStopped(0, "a");
    board.beginResume();
    board.resumed(0, 0);
    board.flowStopped(0, "b");
    EXPECT_TRUE(board.waitForResumed());
}

}  // namespace
