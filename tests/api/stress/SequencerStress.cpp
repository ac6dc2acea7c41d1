// Many sequencers at once, each with a life of its own.
#include "../Documents.h"
#include "../LaneDocuments.h"
#include "../Session.h"
#include "../StopHost.h"
#include "../ThreadCount.h"
#include "Stress.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace api;
using namespace stress;

const std::string text = document(
    procedure(
        "ends",
        makeMonitor("a1", "m", "x") + parallel("n1", {set("a2", "x", 1), waitFor("w1", {"m"})}) + waitForTerm("w2", timer(0)),
        "", source("variable", "m")) +
        procedure("waits",
                  parallel("n2", {waitForTerm("w3", monitor("x")), waitForTerm("w4", timer(3600000)), forEver("l1", "")}) +
                      doNothing("a3")),
    integer("variable", "x", 0));

// One sequencer after the other: some end by themselves, some are cancelled, some are never run.
void liveAndDie(std::mt19937_64 random, int rounds) {
    const auto host = std::make_shared<StopHost>();
    for (int round = 0; round < rounds; ++round) {
        Session session(text, host);
        if (random() % 8 == 0) continue;
        session.start("ends");
        ASSERT_EQ(session.outcome(), "{}");
        if (random() % 2 == 0) continue;
        // A new one, since only the first run of a sequencer has a flow 0.
        Session cancelledOne(text, host);
        cancelledOne.start("waits");
        dawdle(random, 14);
        // Either no flow yet, or the run: both are repeated by the destructor of the session.
        cancelledOne.control("cancel");
        while (!cancelledOne.isOver()) cancelledOne.control("cancel");
        ASSERT_EQ(cancelledOne.outcome(), "failure cancelled: ");
    }
}

TEST(SequencerStress, ManyLiveAndDieIndependently) {
    auto random = generator();
    const std::size_t threads = threadCount();
    std::vector<std::thread> hosts;
    for (int number = 0; number < 8; ++number) hosts.emplace_back(liveAndDie, std::mt19937_64(random()), 25 * factor());
    for (auto& host : hosts) host.join();
    EXPECT_TRUE(isThreadCountReached(threads));
}

}  // namespace
