// A screen's own thread, in which the host closes the screen, fails, or lets it wait.
#include "Documents.h"
#include "Gate.h"
#include "ScreenTest.h"
#include "ThreadCount.h"

#include <otx/log/CLog.h>

#include <algorithm>
#include <mutex>
#include <stdexcept>
#include <vector>

namespace {

using namespace api;

constexpr int subsystem = 3;

// The lines of level 0, while it lives.
class Failures {
public:
    Failures() {
        Hvt::CLog::SetSink([this](Hvt::TLogSubSys, Hvt::TLogLevel level, const std::string& line) {
            const std::lock_guard guard(linesLock_);
            if (level == 0) lines_.push_back(line);
        });
        Hvt::CLog::SetReportingLevel(subsystem, 0);
    }
    ~Failures() {
        Hvt::CLog::SetReportingLevel(subsystem, -1);
        Hvt::CLog::SetSink([](Hvt::TLogSubSys, Hvt::TLogLevel, const std::string&) {});
    }
    Failures(const Failures&) = delete;
    Failures& operator=(const Failures&) = delete;

    bool holds(const std::string& end) {
        const std::lock_guard guard(linesLock_);
        return std::any_of(lines_.begin(), lines_.end(), [&](const std::string& line) { return line.ends_with(end); });
    }

private:
    std::mutex linesLock_;
    std::vector<std::string> lines_;
};

class ScreenThread : public ScreenTest {
protected:
    // A screen that shows x and y.
    void beginPanel(const std::string& after = "") {
        beginScreens(openScreen("a1", "panel", {{"inArg", "x", "x"}, {"inArg", "y", "y"}}), after);
    }
    void expectNoThreadIsLeft() {
        session.reset();
        EXPECT_TRUE(isThreadCountReached(threads));
    }

    const std::size_t threads = threadCount();
    MessageCount changes{changed, "panel"};
};

TEST_F(ScreenThread, TellsOfChangesInTheOrderOfTheWrites) {
    beginPanel();
    startUntilOpen("panel");
    write("x", 1);
    write("y", 2);
    write("x", 1);
    for (const auto& [name, value] : {std::pair{"x", "1"}, std::pair{"y", "2"}, std::pair{"x", "1"}})
        EXPECT_EQ(parameter(heard(changed, "panel"), name), value);
    go();
    EXPECT_EQ(outcome(), "{}");
    expectNoThreadIsLeft();
}

TEST_F(ScreenThread, MayCloseItsOwnScreen) {
    beginPanel(closeScreen("a2", "panel") + set("a3", "x", 9));
    std::string answer;
    Gate told;
    host->reaction = [&](const COtxValue& message) {
        if (!changes.note(message)) return;
        answer = closedByOperator(sequencer(), "panel");
        write("x", 2);
        told.pass();
    };
    startUntilOpen("panel");
    const std::size_t open = threadCount();
    write("x", 1);
    told.awaitArrivals();
    EXPECT_EQ(answer, "deadlock");
    EXPECT_FALSE(isOpen("panel"));
    write("x", 3);
    told.open();
    write("y", 4);
    EXPECT_TRUE(isThreadCountReached(open - 1));
    go();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(changes.count(), 1U) << "no change after the closing";
    expectThatTheNextRunWorks();
    expectNoThreadIsLeft();
}

TEST_F(ScreenThread, ThatClosesItsOwnScreenMayOutliveTheSequencer) {
    beginPanel();
    Gate told;
    host->reaction = [&](const COtxValue& message) {
        if (!changes.note(message)) return;
        EXPECT_EQ(closedByOperator(sequencer(), "panel"), "deadlock");
        told.pass();
    };
    startUntilOpen("panel");
    write("x", 1);
    told.awaitArrivals();
    go();
    EXPECT_EQ(outcome(), "{}");
    session.reset();
    told.open();
    EXPECT_TRUE(isThreadCountReached(threads));
}

TEST_F(ScreenThread, OfOneScreenMayCloseAnother) {
    beginScreens(openScreen("a1", "a", {{"inArg", "x", "x"}}) + openScreen("a2", "b", {{"inArg", "x", "x"}}));
    std::string answer = "not asked";
    host->reaction = [&](const COtxValue& message) {
        if (isMessage(message, changed, "a")) answer = closedByOperator(sequencer(), "b");
    };
    startUntilOpen("b");
    write("x", 1);
    heard(changed, "a");
    waitUntil("the closing of b", [this] { return !isOpen("b"); });
    EXPECT_TRUE(isOpen("a"));
    go();
    EXPECT_EQ(outcome(), "{}");
    EXPECT_EQ(answer, "");
    expectNoThreadIsLeft();
}

// Each waits for the end of the next one, if they were let.
TEST_F(ScreenThread, OfThreeScreensMayCloseEachOtherInACircle) {
    beginScreens(openScreen("a1", "a", {{"inArg", "x", "x"}}) + openScreen("a2", "b", {{"inArg", "x", "x"}}) +
                 openScreen("a3", "c", {{"inArg", "x", "x"}}));
    Gate inside;
    std::atomic<int> refused{0};
    std::atomic<int> answered{0};
    const auto closeNext = [&](const char* next) {
        inside.pass();
        const std::string answer = closedByOperator(sequencer(), next);
        EXPECT_TRUE(answer.empty() || answer == "deadlock") << answer;
        if (answer == "deadlock") ++refused;
        ++answered;
    };
    host->reaction = [&](const COtxValue& message) {
        if (isMessage(message, changed, "a")) closeNext("b");
        if (isMessage(message, changed, "b")) closeNext("c");
        if (isMessage(message, changed, "c")) closeNext("a");
    };
    startUntilOpen("c");
    write("x", 1);
    inside.awaitArrivals(3);
    inside.open();
    waitUntil("the answers", [&] { return answered == 3; });
    EXPECT_EQ(refused, 1) << "the one that closed the circle";
    for (const char* const screen : {"a", "b", "c"}) EXPECT_FALSE(isOpen(screen));
    go();
    EXPECT_EQ(outcome(), "{}");
    expectNoThreadIsLeft();
}

TEST_F(ScreenThread, EndsWhenTheHostThrows) {
    struct Failure {
        ReactingHost::Reaction reaction;
        const char* line;
    };
    for (const Failure& failure : {Failure{[](const COtxValue&) { throw std::logic_error("no"); }, ":panel: host failed: no"},
                                   Failure{[](const COtxValue&) { throw 5; }, ":panel: host failed"}}) {
        Failures failures;
        MessageCount told{changed, "panel"};
        beginPanel(highlightScreen("a2", "panel") + closeScreen("a3", "panel"));
        host->reaction = [&](const COtxValue& message) {
            if (told.note(message)) failure.reaction(message);
        };
        startUntilOpen("panel");
        const std::size_t before = threadCount();
        write("x", 1);
        EXPECT_TRUE(isThreadCountReached(before - 1));
        EXPECT_TRUE(failures.holds(failure.line));
        for (int number = 0; number < 1000; ++number) write("x", number);
        EXPECT_TRUE(isOpen("panel"));
        go();
        heard(highlighted, "panel");
        heard(closing, "panel");
        EXPECT_EQ(outcome(), "{}");
        EXPECT_EQ(told.count(), 1U);
        expectThatTheNextRunWorks();
        session.reset();
    }
    EXPECT_TRUE(isThreadCountReached(threads));
}

TEST_F(ScreenThread, IsGoneOnceTheScreenIsClosed) {
    beginPanel();
    startUntilOpen("panel");
    const std::size_t open = threadCount();
    EXPECT_EQ(closedByOperator(sequencer(), "panel"), "");
    EXPECT_TRUE(isThreadCountReached(open - 1));
    write("x", 1);
    go();
    EXPECT_EQ(outcome(), "{}");
    expectNoThreadIsLeft();
}

// The end of its source takes it along, and the screen stays.
TEST_F(ScreenThread, EndsWithAllSourcesOfTheRun) {
    beginPanel();
    host->reaction = [&](const COtxValue& message) { changes.note(message); };
    startUntilOpen("panel");
    const std::size_t open = threadCount();
    EXPECT_EQ(control("closees"), ok);
    EXPECT_TRUE(isThreadCountReached(open - 2)) << "that of the keys too";
    EXPECT_TRUE(outcome().starts_with("exception InvalidReferenceException: EventSource has been closed"));
    EXPECT_TRUE(isOpen("panel"));
    write("x", 1);
    EXPECT_EQ(changes.count(), 0U);
    expectThatTheNextRunWorks();
    expectNoThreadIsLeft();
}

}  // namespace
