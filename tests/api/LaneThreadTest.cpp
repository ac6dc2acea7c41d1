// The threads of lanes: their group, their signals, the host's calls on them.
#include "Documents.h"
#include "FlowTest.h"
#include "LaneDocuments.h"
#include "Values.h"

#include <otx/event/COtxEventSource.h>
#include <otx/value/Functions.h>

#include <csignal>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace api;

class LaneThread : public FlowTest {
protected:
    // A stop of main and one of each lane, each answered on its own thread after the observation.
    void observe(const std::function<void()>& observation) {
        begin(
            procedure("main", set("a0", "g", 1) + parallel("n1", {set("a1", "x", 1), set("a2", "y", 1)}) + set("a3", "g", 2)));
        setBreakpoints({"a0", "a1", "a2", "a3"});
        host->reaction = [this, observation](const COtxValue& message) {
            observation();
            const COtxValue status = OTX::GetParameter(message, "status", OTX::ValueType::Map);
            EXPECT_EQ(control("run", flow(static_cast<int>(OTX::GetParameter(status, "id", OTX::ValueType::Integer).Int()))),
                      ok);
        };
        start();
        EXPECT_EQ(outcome(), "{}");
        EXPECT_EQ(host->count(), 4U);
    }
};

TEST_F(LaneThread, BelongsToTheGroupOfTheRunWhileItLasts) {
    std::mutex seenLock;
    std::vector<std::pair<std::thread::id, std::optional<std::thread::id>>> seen;
    observe([&] {
        const auto self = std::this_thread::get_id();
        const std::lock_guard guard(seenLock);
        seen.emplace_back(self, COtxEventSource::ThreadGroup().RootOf(self));
    });
    ASSERT_EQ(seen.size(), 4U);
    const std::thread::id root = seen.front().first;
    for (const auto& [thread, rootOfThread] : seen) EXPECT_EQ(rootOfThread, root);
    EXPECT_NE(seen[1].first, root);
    EXPECT_NE(seen[1].first, seen[2].first);
    EXPECT_EQ(COtxEventSource::ThreadGroup().RootOf(root), root);
    EXPECT_FALSE(COtxEventSource::ThreadGroup().RootOf(seen[1].first).has_value()) << "the lane has left";
    session.reset();
    EXPECT_FALSE(COtxEventSource::ThreadGroup().RootOf(root).has_value());
}

TEST_F(LaneThread, BelongsToAGroupAlsoAfterACancelHasEndedTheFirstOne) {
    begin(procedure("first", set("a1", "g", 1) + set("a2", "g", 2)) + procedure("main", parallel("n1", {set("a3", "x", 1)})));
    session->start("first", true);
    stopAt("a1");
    EXPECT_EQ(control("cancel"), ok) << "which ends the group";
    EXPECT_EQ(outcome(), cancelled);
    std::thread::id lane;
    std::optional<std::thread::id> root;
    host->reaction = [&](const COtxValue&) {
        lane = std::this_thread::get_id();
        root = COtxEventSource::ThreadGroup().RootOf(lane);
        EXPECT_EQ(control("run"), ok);
    };
    setBreakpoints({"a3"});
    start();
    EXPECT_EQ(outcome(), "{}");
    ASSERT_TRUE(root.has_value());
    EXPECT_NE(*root, lane);
    EXPECT_FALSE(COtxEventSource::ThreadGroup().RootOf(*root).has_value()) << "the group has ended with the run";
}

TEST_F(LaneThread, TakesNoAsynchronousSignals) {
    std::mutex seenLock;
    std::vector<bool> blocked;
    observe([&] {
        sigset_t mask;
        pthread_sigmask(SIG_BLOCK, nullptr, &mask);
        const std::lock_guard guard(seenLock);
        bool all = true;
        for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGALRM, SIGCHLD, SIGUSR1, SIGUSR2, SIGPIPE})
            all = all && sigismember(&mask, number) == 1;
        blocked.push_back(all);
        EXPECT_EQ(sigismember(&mask, SIGSEGV), 0) << "those of a fault stay with the thread that made it";
    });
    EXPECT_EQ(blocked, (std::vector<bool>{false, true, true, false})) << "those of the run's thread are as they were";
}

TEST_F(LaneThread, MaySendEventsFromTheHostsCallback) {
    std::mutex seenLock;
    int refused = 0;
    observe([&] {
        try {
            session->sequencer().SendEvent(value(R"({"eventType":"Foo"})"));
        } catch (const std::runtime_error&) {
            const std::lock_guard guard(seenLock);
            ++refused;
        }
    });
    EXPECT_EQ(refused, 4);
}

}  // namespace
