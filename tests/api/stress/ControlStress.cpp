// Commands from several threads at once on lanes that turn.
#include "../Documents.h"
#include "../FlowTest.h"
#include "../LaneDocuments.h"
#include "Stress.h"

#include <atomic>
#include <chrono>
#include <iostream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace api;
using namespace stress;

class ControlStress : public FlowTest {
protected:
    void beginTurning() {
        begin(procedure("main", parallel("n1", {forEver("l1", increment("a1", "x")), forEver("l2", increment("a2", "y")),
                                                forEver("l3", group("g1", increment("a3", "g")))}) +
                                    doNothing("a4")));
        session->start("main", true);
        stopAt("n1");
        EXPECT_EQ(control("run"), ok);
        expectThatAllTurn();
    }

    void expectThatAllTurn() {
        for (const char* name : {"x", "y", "g"}) waitForProgress(name);
    }

    // Lets four threads say one of these words again and again for so long.
    void hammer(const std::vector<std::string>& words, std::chrono::seconds time) {
        auto random = generator();
        const auto end = std::chrono::steady_clock::now() + time * factor();
        std::atomic<long> commands{0};
        std::vector<std::thread> threads;
        for (int number = 0; number < 4; ++number)
            threads.emplace_back([&, own = std::mt19937_64(random())]() mutable {
                long said = 0;
                while (std::chrono::steady_clock::now() < end) {
                    const std::string answer = control(words[own() % words.size()]);
                    EXPECT_TRUE(answer == ok || answer == "failure No threads running" ||
                                answer == "failure No threads stopped" || answer.starts_with("{\"flows\":["))
                        << answer;
                    ++said;
                    // Both a word close on the one before, and time for the lanes to act on it.
                    if (own() % 2 == 0)
                        dawdle(own, 10);
                    else
                        std::this_thread::yield();
                }
                commands += said;
            });
        for (auto& thread : threads) thread.join();
        std::cout << commands << " commands, " << host->count() << " stops\n";
    }
};

TEST_F(ControlStress, StopAndRunLoseNoWakeUp) {
    beginTurning();
    hammer({"stop", "run"}, std::chrono::seconds(3));
    // From here on nobody says stop: one word is enough for all that stand or were about to.
    const std::string answer = control("run");
    EXPECT_TRUE(answer == ok || answer == "failure No threads stopped") << answer;
    expectThatAllTurn();
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
}

TEST_F(ControlStress, StopRunStepAndStatusLoseNoWakeUp) {
    beginTurning();
    hammer({"stop", "run", "step", "status"}, std::chrono::seconds(1));
    const std::string answer = control("run");
    EXPECT_TRUE(answer == ok || answer == "failure No threads stopped") << answer;
    expectThatAllTurn();
    EXPECT_EQ(control("cancel"), ok);
    EXPECT_EQ(outcome(), cancelled);
}

TEST_F(ControlStress, ACancelAmongOtherWordsEndsTheRun) {
    for (int round = 0; round < 10 * factor(); ++round) {
        host = std::make_shared<ReactingHost>();
        beginTurning();
        std::atomic<bool> isLast{false};
        std::vector<std::thread> threads;
        for (const char* word : {"stop", "run", "step", "status"})
            threads.emplace_back([this, &isLast, word] {
                while (!isLast) control(word);
            });
        control("cancel");
        isLast = true;
        for (auto& thread : threads) thread.join();
        // A later word takes back a cancellation that its flow hasn't seen; this is meant. The parent that was told to run
        // after its lanes were cancelled runs to its end.
        while (!session->isOver()) control("cancel");
        const std::string answer = outcome();
        EXPECT_TRUE(answer == cancelled || answer == "{}") << answer;
    }
}

}  // namespace
