// The output of the process, as a host sets it.
#include <otx/log/CLog.h>
#include <otx/log/LogOutput.h>

#include "Child.h"
#include "LogFolder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <stdexcept>

namespace {

using Hvt::CLog;
using Hvt::LogOutput;

constexpr std::chrono::milliseconds aMinute{60'000};

class Output : public testing::Test {
protected:
    ~Output() override {
        LogOutput::ToStandardError();
        CLog::SetSink({});
    }

    LogFolder folder;
};

}  // namespace

TEST_F(Output, IsAFileWhenTheHostSaysSo) {
    testing::internal::CaptureStderr();
    LogOutput::ToFile({folder.file("log"), 0, 0});
    CLog(3).Get(4, 3) << "to the file";
    LogOutput::ToStandardError();
    CLog(3).Get(4, 3) << "to standard error";
    EXPECT_TRUE(LogOutput::Flush(aMinute));
    EXPECT_EQ(folder.text("log"), "to the file\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "to standard error\n");
}

TEST_F(Output, StaysWhereItIsWhenTheFileCantBeOpened) {
    LogOutput::ToFile({folder.file("log"), 0, 0});
    EXPECT_THROW(LogOutput::ToFile({folder.file("nowhere/log"), 0, 0}), std::runtime_error);
    CLog(3).Get(4, 3) << "still here";
    EXPECT_TRUE(LogOutput::Flush(aMinute));
    EXPECT_EQ(folder.text("log"), "still here\n");
}

TEST_F(Output, RotatesAsTheHostSays) {
    LogOutput::ToFile({folder.file("log"), 10, 1});
    for (const char* line : {"first", "second", "third"}) CLog(2).Get(3, 0) << line;
    EXPECT_TRUE(LogOutput::Flush(aMinute));
    EXPECT_EQ(folder.text("log"), "third\n");
    EXPECT_EQ(folder.text("log.1"), "second\n");
}

TEST_F(Output, ASinkGoesFirst) {
    std::string taken;
    CLog::SetSink([&](Hvt::TLogSubSys, Hvt::TLogLevel, const std::string& line) { taken = line; });
    LogOutput::ToFile({folder.file("log"), 0, 0});
    CLog(3).Get(0, 3) << "a line";
    EXPECT_TRUE(LogOutput::Flush(aMinute));
    EXPECT_EQ(taken, "a line");
    EXPECT_EQ(folder.text("log"), "");
}

TEST_F(Output, CountsLostLines) {
    const std::uint64_t before = LogOutput::LostLines();
    LogOutput::ToFile({"/dev/full", 0, 0});
    CLog(3).Get(0, 3) << "lost";
    EXPECT_TRUE(LogOutput::Flush(aMinute));
    EXPECT_EQ(LogOutput::LostLines(), before + 1);
}

// In a process of its own, see Main.cpp.
TEST_F(Output, IsWrittenOutAtTheExitOfTheProcess) {
    const std::string path = folder.file("log");
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl("/proc/self/exe", "log_tests", "--log-and-exit", path.c_str(), nullptr);
        ::_exit(127);
    }
    EXPECT_EQ(Child::exitOf(child), 0);
    EXPECT_EQ(folder.lines("log").size(), 10'000u);
}
