// Ctrl-C as a cancel.
#include "FakeSequencer.h"
#include "program/InterruptWatcher.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <future>
#include <initializer_list>
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

// What a run of the program sees of the signals, one behind the other; the test's end is the end of the process.
void takeSignals(const std::initializer_list<int>& signals) {
    FakeSequencer sequencer;
    std::promise<void> cancelled;
    sequencer.control = [&](const std::string&) {
        cancelled.set_value();  // a second call would throw
        return COtxValue();
    };
    const InterruptWatcher watcher(sequencer);
    kill(getpid(), *signals.begin());
    cancelled.get_future().get();
    std::for_each(signals.begin() + 1, signals.end(), [](int number) { kill(getpid(), number); });
    for (;;)
        pause();
}

TEST_F(InterruptWatcherDeathTest, TerminationAndHangUpCancelAsWell) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(takeSignals({SIGTERM, SIGTERM}), testing::KilledBySignal(SIGTERM), "");
    EXPECT_EXIT(takeSignals({SIGHUP, SIGTERM}), testing::KilledBySignal(SIGTERM), "");
    EXPECT_EXIT(takeSignals({SIGTERM, SIGINT}), testing::KilledBySignal(SIGINT), "");
}

TEST_F(InterruptWatcherDeathTest, ASecondHangUpEndsNothing) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(takeSignals({SIGHUP, SIGHUP, SIGINT}), testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(takeSignals({SIGINT, SIGHUP, SIGTERM}), testing::KilledBySignal(SIGTERM), "");
}

TEST_F(InterruptWatcherTest, LeavesAnIgnoredSignalAlone) {
    for (const int number : {SIGTERM, SIGHUP}) {
        const auto before = std::signal(number, SIG_IGN);
        FakeSequencer sequencer;
        sequencer.control = [&](const std::string&) -> COtxValue { throw std::logic_error("nothing is to be cancelled"); };
        const InterruptWatcher watcher(sequencer);
        sigset_t blocked;
        pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
        EXPECT_EQ(sigismember(&blocked, number), 0);
        EXPECT_TRUE(interruptIsBlocked());
        std::signal(number, before);
    }
}

TEST_F(InterruptWatcherTest, HasNoThreadWhereAllIsIgnored) {
    std::signal(SIGINT, SIG_IGN);
    const auto terminated = std::signal(SIGTERM, SIG_IGN);
    const auto hungUp = std::signal(SIGHUP, SIG_IGN);
    FakeSequencer sequencer;
    const std::ptrdiff_t before = threadsOfProcess();
    {
        const InterruptWatcher watcher(sequencer);
        EXPECT_EQ(threadsOfProcess(), before);
    }
    std::signal(SIGTERM, terminated);
    std::signal(SIGHUP, hungUp);
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
