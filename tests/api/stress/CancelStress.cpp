// Runs that are cancelled at random moments end soon, and leave nothing behind.
#include "../Documents.h"
#include "../LaneDocuments.h"
#include "../ReactingHost.h"
#include "../Session.h"
#include "../ThreadCount.h"
#include "../Values.h"
#include "MachineClock.h"
#include "Stress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <iostream>
#include <map>
#include <memory>
#include <string>

namespace {

using namespace api;
using namespace stress;

const std::string ok = R"("")";
const std::string cancelled = "failure cancelled: ";
const std::string noFirstFlow = "failure Invalid thread id: 0";

// Where the cancelling finds a run: a procedure, and whether it begins stopped. Of `stops` some are awaited first.
struct Place {
    const char* procedure;
    bool startStopped;
    int stops;
    bool ends;  // by itself
};

constexpr std::array places{
    Place{"wait", false, 0, false},     Place{"waitForTwo", false, 0, false}, Place{"turn", false, 0, false},
    Place{"lanes", false, 0, false},    Place{"laneWaits", false, 0, false},  Place{"barrier", false, 0, false},
    Place{"nested", false, 0, false},   Place{"stopped", false, 2, false},    Place{"turn", true, 1, false},
    Place{"lanes", true, 1, false},     Place{"mutex", false, 0, false},      Place{"mutexStopped", false, 1, false},
    Place{"ownMutex", false, 0, false}, Place{"catching", false, 0, false},   Place{"ends", false, 0, true},
    Place{"ends", true, 1, true},       Place{"endsInLanes", false, 0, true}};

std::string placesDocument() {
    const std::string hour = timer(3600000);
    const std::string behind = doNothing("z1");
    return document(
        procedure("wait", waitForTerm("w1", hour) + behind) +
            procedure("waitForTwo",
                      makeMonitor("b1", "m", "x") + makeTimer("b2", "t", 3600000) + waitFor("w2", {"m", "t"}) + behind, "",
                      source("variable", "m") + source("variable", "t")) +
            procedure("turn", forEver("l1", increment("c1", "x"))) +
            procedure("lanes",
                      parallel("n1", {forEver("l2", increment("d1", "x")), forEver("l3", increment("d2", "y"))}) + behind) +
            procedure("laneWaits",
                      parallel("n2", {waitForTerm("w3", hour), waitForTerm("w4", monitor("x")), forEver("l4", "")}) + behind) +
            procedure("barrier",
                      forEver("l5", parallel("n3", {doNothing("e1"), doNothing("e2"), doNothing("e3"), doNothing("e4")}))) +
            procedure("nested", forEver("l6", parallel("n4", {parallel("n5", {doNothing("f1"), ""}),
                                                              parallel("n6", {doNothing("f2"), doNothing("f3")})}))) +
            procedure("stopped",
                      parallel("n7", {doNothing("s1") + doNothing("s2") + behind, doNothing("s3") + waitForTerm("w5", hour)}) +
                          behind) +
            procedure("mutex", parallel("n8", {forEver("l7", mutexGroup("m1", increment("g1", "x"))),
                                               forEver("l8", mutexGroup("m2", increment("g2", "x"))),
                                               forEver("l9", mutexGroup("m3", increment("g3", "x")))}) +
                                   behind) +
            procedure("mutexStopped",
                      parallel("n9", {mutexGroup("m4", doNothing("s4")) + behind, mutexGroup("m5", doNothing("s5")) + behind}) +
                          behind) +
            procedure("ownMutex", mutexGroup("m6", parallel("n11", {mutexGroup("m7", ""), mutexGroup("m8", "")})) + behind) +
            procedure("catching", forEver("l10", handlerOf("InvalidReferenceException", "h1",
                                                           waitForTerm("w6", timer(0)) + increment("i1", "x"),
                                                           increment("i2", "y"), increment("i3", "x")))) +
            procedure("ends", doNothing("j1") + doNothing("j2") + loopOf("l11", "x", 20, doNothing("j3")) + doNothing("j4")) +
            procedure("endsInLanes", doNothing("k1") + parallel("n10", {loopOf("l12", "x", 10, doNothing("k2")),
                                                                        loopOf("l13", "y", 10, doNothing("k3"))})),
        integer("variable", "x", 0) + integer("variable", "y", 0));
}

// Uses what a cancelled run might have left in a bad state: lanes, the mutex, waits, sources that a command reaches.
std::string checkDocument() {
    return document(
        procedure("main",
                  makeMonitor("a1", "m", "x") +
                      parallel("n1", {mutexGroup("m1", set("a2", "x", 1)), waitFor("w1", {"m"}), waitForTerm("w2", timer(0))}) +
                      handlerOf("InvalidReferenceException", "h1", waitFor("w3", {"m"}), set("a3", "x", 3)),
                  "", source("variable", "m")),
        integer("variable", "x", 0));
}

class CancelStress : public testing::Test {
protected:
    // Answers how long the run went on after the command.
    std::chrono::milliseconds cancelOneRun(const Place& place, std::mt19937_64& random) {
        const auto host = std::make_shared<ReactingHost>();
        Session session(thread, places_, host);
        EXPECT_EQ(session.control("setbp", R"({"breakpoints":["s1","s3","s4","s5"]})"), ok);
        session.start(place.procedure, place.startStopped);
        for (auto stops = place.stops == 0 ? 0U : random() % (static_cast<unsigned>(place.stops) + 1); stops > 0; --stops)
            host->nextStop();
        dawdle(random, 16);
        std::chrono::milliseconds commanded{0};
        std::string answer;
        do {
            commanded = clock.now();
            answer = session.control("cancel");
            // There is no flow yet, or none any more.
        } while (answer == noFirstFlow && !session.isOver());
        const std::string outcome = session.outcome();
        const auto lasted = clock.now() - commanded;
        ++outcomes[outcome];
        EXPECT_TRUE(outcome == cancelled || (place.ends && outcome == "{}")) << place.procedure << ": " << outcome;
        const std::string status = session.control("status");
        EXPECT_TRUE(status.starts_with(outcome == cancelled ? R"({"flows":[{"id":0,"state":"RUNNING"}],)" : R"({"flows":[],)"))
            << place.procedure << ": " << status;
        return lasted;
    }

    void runOnTheSameThread() {
        const auto host = std::make_shared<StopHost>();
        Session session(thread, check_, host);
        EXPECT_EQ(session.control("setbp", R"({"breakpoints":["w3"]})"), ok);
        session.start();
        host->nextStop();
        EXPECT_EQ(session.control("closees"), ok);
        EXPECT_EQ(session.control("run"), ok);
        EXPECT_EQ(session.outcome(), "{}");
        EXPECT_EQ(session.control("status"), R"({"flows":[],"globalvars":{"x":3}})");
    }

    const MachineClock clock;
    const std::shared_ptr<WorkThread> thread = std::make_shared<WorkThread>();
    std::map<std::string, int> outcomes;

private:
    const std::string places_ = placesDocument();
    const std::string check_ = checkDocument();
};

TEST_F(CancelStress, EndsARunAtAnyMomentAndLeavesNothingBehind) {
    constexpr std::chrono::milliseconds allowed{100};
    auto random = generator();
    const std::size_t threads = threadCount();
    std::map<std::string, std::chrono::milliseconds> longest;
    const int runs = 500 * factor();
    for (int run = 0; run < runs && !HasFailure(); ++run) {
        const Place& place = places[random() % places.size()];
        const auto lasted = cancelOneRun(place, random);
        longest[place.procedure] = std::max(longest[place.procedure], lasted);
        runOnTheSameThread();
        ASSERT_TRUE(isThreadCountReached(threads)) << place.procedure;
    }
    for (const auto& [outcome, count] : outcomes) std::cout << count << " times " << outcome << '\n';
    for (const auto& [procedure, time] : longest) {
        std::cout << procedure << ": at most " << time.count() << " ms\n";
        if (isTimed) {
            EXPECT_LE(time, allowed) << procedure;
        }
    }
}

}  // namespace
