// Ctrl-C as a cancel.
#include "FakeSequencer.h"
#include "program/InterruptWatcher.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <filesystem>
#include <future>
#include <iterator>
#include <mutex>
#include <optional>

namespace {

using velkotx::host::InterruptWatcher;

// A process that a shell started in the background ignores Ctrl-C; the tests press it for themselves.
[[maybe_unused]] const auto formerHandler = std::signal(SIGINT, SIG_DFL);

// To the process, as a terminal sends it.
void pressCtrlC() {
    kill(getpid(), SIGINT);
}

bool interruptIsBlocked() {
    sigset_t blocked;
    pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
    return sigismember(&blocked, SIGINT) == 1;
}

std::ptrdiff_t threadsOfProcess() {
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
}

// Whoever starts the tests may ignore the signal, which a process inherits.
class InterruptWatcherTest : public testing::Test {
protected:
    void SetUp() override { before_ = std::signal(SIGINT, SIG_DFL); }
    void TearDown() override { std::signal(SIGINT, before_); }

private:
    void (*before_)(int) = SIG_DFL;
};

using InterruptWatcherDeathTest = InterruptWatcherTest;

TEST_F(InterruptWatcherTest, TellsAheadOfTheCancellation) {
    FakeSequencer sequencer;
    std::string done;
    std::promise<void> cancelled;
    sequencer.control = [&](const std::string& command) {
        done += command;
        cancelled.set_value();
        return COtxValue();
    };
    const InterruptWatcher watcher(sequencer, [&] { done += "told, "; });
    pressCtrlC();
    cancelled.get_future().wait();
    EXPECT_EQ(done, "told, cancel");
}

TEST_F(InterruptWatcherTest, CancelsOnce) {
    FakeSequencer sequencer;
    std::promise<std::string> cancelled;
    sequencer.control = [&](const std::string& command) {
        cancelled.set_value(command);  // a second call would throw
        return COtxValue();
    };
    const InterruptWatcher watcher(sequencer);
    pressCtrlC();
    EXPECT_EQ(cancelled.get_future().get(), "cancel");
}

TEST_F(InterruptWatcherTest, AsksAgainWhileThereIsNothingToCancelYet) {
    FakeSequencer sequencer;
    std::promise<void> cancelled;
    int calls = 0;
    sequencer.control = [&](const std::string&) -> COtxValue {
        if (++calls < 3)
            throw std::runtime_error("Invalid thread id: 0");
        cancelled.set_value();
        return COtxValue();
    };
    const InterruptWatcher watcher(sequencer);
    pressCtrlC();
    cancelled.get_future().get();
    EXPECT_EQ(calls, 3);
}

TEST_F(InterruptWatcherTest, GivesUpWhenTheRunIsOver) {
    FakeSequencer sequencer;
    std::promise<void> asked;
    std::once_flag once;
    sequencer.control = [&](const std::string&) -> COtxValue {
        std::call_once(once, [&] { asked.set_value(); });
        throw std::runtime_error("Invalid thread id: 0");
    };
    std::optional<InterruptWatcher> watcher(std::in_place, sequencer);
    pressCtrlC();
    asked.get_future().get();
    watcher.reset();  // hangs if the watcher went on asking
}

TEST_F(InterruptWatcherDeathTest, LeavesTheSecondInterruptToTheSystem) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            FakeSequencer sequencer;
            std::promise<void> cancelled;
            sequencer.control = [&](const std::string&) {
                cancelled.set_value();
                return COtxValue();
            };
            const InterruptWatcher watcher(sequencer);
            pressCtrlC();
            cancelled.get_future().get();
            pressCtrlC();
            for (;;)
                pause();
        },
        testing::KilledBySignal(SIGINT), "");
}

TEST_F(InterruptWatcherTest, LeavesAnIgnoredSignalAlone) {
    std::signal(SIGINT, SIG_IGN);
    FakeSequencer sequencer;
    const std::ptrdiff_t before = threadsOfProcess();
    const InterruptWatcher watcher(sequencer);
    EXPECT_EQ(threadsOfProcess(), before);
}

TEST_F(InterruptWatcherTest, BlocksTheSignalOnlyWhileItLives) {
    FakeSequencer sequencer;
    {
        const InterruptWatcher watcher(sequencer);
        EXPECT_TRUE(interruptIsBlocked());
    }
    EXPECT_FALSE(interruptIsBlocked());
}

}  // namespace
