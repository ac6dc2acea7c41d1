// What stops and the status tell of lanes.
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "Values.h"

#include <otx/value/Functions.h>

#include <algorithm>
#include <set>
#include <string>

namespace {

using namespace api;

class LaneStatus : public FlowTest {};

TEST_F(LaneStatus, IsWhatTheStopHasTold) {
    begin(procedure("main", parallel("n1", {set("a1\" name=\"first", "x", 1)}), "", integer("variable", "v", 5)));
    setBreakpoints({"a1"});
    start();
    const std::string stop = json(host->nextMessage());
    EXPECT_EQ(stop, R"({"eventType":"FlowStopped","status":)" + flowText(1) + "}");
    EXPECT_EQ(flowText(1), R"({"id":1,"name":"first","node":"a1","stack":["main"],"state":"STOPPED",)"
                           R"("type":"class otxns::Assignment_impl<class otxns::Assignment_base>","vars":{"v":5}})");
}

TEST_F(LaneStatus, ShowsTheParentsTopFrameAndWhatTheLaneHasCalled) {
    begin(procedure("main", call("c1", "outer")) +
          procedure("outer", parallel("n1", {call("c2", "inner"), set("a2", "w", 7)}), "", integer("variable", "w", 6)) +
          procedure("inner", set("a1", "v", 1), "", integer("variable", "v", 5)));
    setBreakpoints({"a1", "a2"});
    start();
    const auto at = stops(2);
    const std::string tail = R"("state":"STOPPED","type":"class otxns::Assignment_impl<class otxns::Assignment_base>",)";
    EXPECT_EQ(flowText(at.at("a1")), R"({"id":)" + std::to_string(at.at("a1")) + R"(,"node":"a1","stack":["outer","inner"],)" +
                                         tail + R"("vars":{"v":5}})");
    EXPECT_EQ(flowText(at.at("a2")),
              R"({"id":)" + std::to_string(at.at("a2")) + R"(,"node":"a2","stack":["outer"],)" + tail + R"("vars":{"w":6}})");
}

TEST_F(LaneStatus, OfTheParentIsThatOfARunningFlow) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1)})));
    setBreakpoints({"a1"});
    start();
    stopAt("a1");
    EXPECT_EQ(flowText(0), R"({"id":0,"state":"RUNNING"})");
}

TEST_F(LaneStatus, ShrinksWhenLanesEnd) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1), set("a2", "x", 1), set("a3", "x", 1)})));
    setBreakpoints({"a1", "a2", "a3"});
    start();
    const auto at = stops(3);
    EXPECT_EQ(flows().size(), 4U);
    EXPECT_EQ(flows(), flows()) << "in the order of their threads";
    EXPECT_EQ(control("run", flow(at.at("a1"))), ok);
    EXPECT_EQ(control("run", flow(at.at("a3"))), ok);
    waitUntilGone(at.at("a1"));
    waitUntilGone(at.at("a3"));
    const auto left = flows();
    EXPECT_EQ(std::set<int>(left.begin(), left.end()), (std::set<int>{0, at.at("a2")}));
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_TRUE(flows().empty());
}

TEST_F(LaneStatus, OfOneFlowHasAllGlobals) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1), set("a2", "x", 1)})));
    setBreakpoints({"a1", "a2"});
    start();
    const int second = stops(2).at("a2");
    const std::string text = json(session->status(flow(second)));
    EXPECT_EQ(text, R"({"flows":[)" + flowText(second) + R"(],"globalvars":{"g":0,"x":0,"y":0}})");
}

TEST_F(LaneStatus, OfAStoppedLaneFollowsWhatOthersAssign) {
    begin(procedure("main", parallel("n1", {set("a1", "x", 1), set("a2", "v", 6)}), "", integer("variable", "v", 5)));
    setBreakpoints({"a1", "a2"});
    start();
    const auto at = stops(2);
    const COtxValue before = session->status(flow(at.at("a1")));
    const std::string beforeText = json(before);
    EXPECT_NE(beforeText.find(R"("vars":{"v":5})"), std::string::npos) << beforeText;
    EXPECT_EQ(control("run", flow(at.at("a2"))), ok);
    waitUntilGone(at.at("a2"));
    EXPECT_NE(flowText(at.at("a1")).find(R"("vars":{"v":6})"), std::string::npos) << flowText(at.at("a1"));
    EXPECT_EQ(json(before), beforeText);
}

TEST_F(LaneStatus, IsWholeWhileALaneAppendsToAList) {
    begin(procedure("main", parallel("n1", {loopOf("l1", "y", 3000, append("a1", "list")), set("a2", "x", 1)}), "", ""),
          listOf("variable", "list"));
    setBreakpoints({"a2"});
    start();
    const int stopped = stopAt("a2");
    std::size_t last = 0;
    while (flows().size() == 3) {
        const COtxValue globals = OTX::GetParameter(session->status(), "globalvars", OTX::ValueType::Map);
        const COtxValue list = OTX::GetParameter(globals, "list", OTX::ValueType::List);
        EXPECT_GE(list.List().size(), last);
        last = list.List().size();
        EXPECT_TRUE(std::all_of(list.List().begin(), list.List().end(), [](const COtxValue& item) { return item.Int() == 7; }));
    }
    EXPECT_EQ(control("run", flow(stopped)), ok);
    EXPECT_EQ(outcome(), "{}");
}

TEST_F(LaneStatus, ShowsEventsAndSourcesAndLeavesThemOpen) {
    begin(procedure("main",
                    makeMonitor("a1", "m", "x") + makeTimer("a2", "t", 0) + waitFor("w1", {"t"}, "e") + set("a3", "x", 5) +
                        waitFor("w2", {"m"}, "f") + newValue("a4", "g", "f"),
                    "", source("variable", "m") + source("variable", "t") + source("variable", "e") + source("variable", "f")));
    setBreakpoints({"a3", "w2"});
    start();
    stopAt("a3");
    const std::string text = flowText(0);
    EXPECT_NE(
        text.find(
            R"("vars":{"e":{"Event":"TimerExpired"},"f":null,"m":{"EventSource":"EventSource"},"t":{"EventSource":"EventSource"}})"),
        std::string::npos)
        << text;
    EXPECT_EQ(control("run"), ok);
    stopAt("w2");
    EXPECT_EQ(control("run"), ok);
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(global("g"), 5);
}

TEST_F(LaneStatus, GivesEveryLaneAFreshNumber) {
    begin(procedure("main", loopOf("l1", "y", 5, parallel("n1", {set("a1", "x", 1), set("a2", "x", 2)}))));
    setBreakpoints({"a1", "a2"});
    std::set<int> numbers;
    for (int run = 0; run < 2; ++run) {
        start();
        for (int pass = 0; pass < 5; ++pass) {
            for (const auto& [node, id] : stops(2)) EXPECT_TRUE(numbers.insert(id).second) << id;
            EXPECT_EQ(control("run"), ok);
        }
        EXPECT_EQ(outcome(), "{}");
    }
    EXPECT_EQ(numbers, (std::set<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21}));
}

}  // namespace
