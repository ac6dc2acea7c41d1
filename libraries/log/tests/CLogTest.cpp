// The trace: levels, sinks, and that it never fails anybody.
#include <otx/log/CLog.h>
#include <otx/log/LogOutput.h>

#include <gtest/gtest.h>
#include <pthread.h>

#include <locale>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

using Hvt::CLog;

struct Line {
    Hvt::TLogSubSys subsystem;
    Hvt::TLogLevel level;
    std::string text;
};

// Collects lines, and puts everything back at the end.
class Log : public testing::Test {
protected:
    Log() {
        CLog::SetSink([this](Hvt::TLogSubSys subsystem, Hvt::TLogLevel level, const std::string& text) {
            lines.push_back({subsystem, level, text});
        });
    }
    ~Log() override {
        CLog::SetSink({});
        CLog::SetReportingLevel(3, -1);
    }

    std::vector<Line> lines;
};

class CommaPunctuation : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

}  // namespace

TEST_F(Log, BeginsSilent) {
    for (Hvt::TLogSubSys subsystem = 0; subsystem < CLog::subsystems; ++subsystem)
        EXPECT_LT(CLog::ReportingLevel(subsystem), 0);
    EXPECT_LT(CLog::ReportingLevel(9999), 0);
}

TEST_F(Log, LevelsBelongToASubsystem) {
    CLog::SetReportingLevel(3, 4);
    EXPECT_EQ(CLog::ReportingLevel(3), 4);
    EXPECT_LT(CLog::ReportingLevel(2), 0);
    CLog::SetReportingLevel(9999, 4);
    EXPECT_LT(CLog::ReportingLevel(9999), 0);
}

TEST_F(Log, DeliversALineWholeWhenItsObjectDies) {
    {
        CLog log(3);
        log.Get(4, 3) << "a" << 1;
        EXPECT_TRUE(lines.empty());
        log.Get(4, 3) << "b";
    }
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].subsystem, 3u);
    EXPECT_EQ(lines[0].level, 4);
    EXPECT_EQ(lines[0].text, "a1b");
}

TEST_F(Log, Subsystem0IsThatOfTheConstructor) {
    CLog(2).Get(1, 0) << "x";
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].subsystem, 2u);
    EXPECT_EQ(lines[0].level, 1);
}

TEST_F(Log, NumbersDontDependOnTheGlobalLocale) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
    CLog(3).Get(4, 3) << 1234567 << " " << 0.5;
    std::locale::global(before);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text, "1234567 0.5");
}

TEST_F(Log, NeverThrowsWhateverTheSinkDoes) {
    CLog::SetSink([](Hvt::TLogSubSys, Hvt::TLogLevel, const std::string&) { throw std::runtime_error("full"); });
    EXPECT_NO_THROW(CLog(3).Get(0, 3) << "lost");
    CLog::SetSink([](Hvt::TLogSubSys, Hvt::TLogLevel, const std::string&) { throw 7; });
    EXPECT_NO_THROW(CLog(3).Get(0, 3) << "lost");
}

TEST_F(Log, KeepsLinesOfManyThreadsWhole) {
    constexpr int threads = 4;
    constexpr int count = 500;
    std::vector<std::thread> running;
    for (int thread = 0; thread < threads; ++thread) {
        running.emplace_back([thread] {
            for (int line = 0; line < count; ++line) CLog(3).Get(4, 3) << "thread " << thread << " line " << line;
        });
    }
    for (auto& thread : running) thread.join();
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(threads * count));
    for (const Line& line : lines) EXPECT_TRUE(line.text.starts_with("thread ")) << line.text;
}

TEST_F(Log, GoesToStandardErrorWithoutASink) {
    CLog::SetSink({});
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    CLog(3).Get(4, 3) << "a line with {} and %v";
    EXPECT_TRUE(Hvt::LogOutput::Flush(std::chrono::minutes(1)));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "a line with {} and %v\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(Log, PutsOffTheCancellationOfTheThreadWhileItDelivers) {
    CLog::SetSink([this](Hvt::TLogSubSys, Hvt::TLogLevel, const std::string& text) {
        pthread_testcancel();
        lines.push_back({0, 0, text});
    });
    pthread_t thread{};
    const auto run = [](void* stateAfter) -> void* {
        pthread_cancel(pthread_self());
        CLog(3).Get(0, 3) << "delivered";
        pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, static_cast<int*>(stateAfter));
        return nullptr;
    };
    int stateAfter = PTHREAD_CANCEL_DISABLE;
    ASSERT_EQ(pthread_create(&thread, nullptr, run, &stateAfter), 0);
    void* result = nullptr;
    ASSERT_EQ(pthread_join(thread, &result), 0);
    EXPECT_EQ(result, nullptr);
    EXPECT_EQ(stateAfter, PTHREAD_CANCEL_ENABLE);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text, "delivered");
}
