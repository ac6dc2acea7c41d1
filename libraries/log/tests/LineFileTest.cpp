// Files of the log: whole lines, rotation, failures.
#include "../src/LineFile.h"
#include "Child.h"
#include "LogFolder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <stdexcept>

namespace {

using Hvt::LineFile;

class LineFiles : public testing::Test {
protected:
    std::string file() const { return folder.file("log"); }

    LogFolder folder;
};

// What a child process answers in which no file may grow beyond that size.
template <class Work>
int inChildWithFilesUpTo(rlim_t bytes, Work work) {
    return Child::answer([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, bytes};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return work();
    });
}

}  // namespace

TEST_F(LineFiles, AddToWhatIsThere) {
    { EXPECT_TRUE(LineFile({file(), 0, 0}).write("first\n")); }
    { EXPECT_TRUE(LineFile({file(), 0, 0}).write("second\n")); }
    EXPECT_EQ(folder.text("log"), "first\nsecond\n");
}

TEST_F(LineFiles, BeginALineOfTheirOwnBehindHalfAOne) {
    std::ofstream(file()) << "first\nsec";
    { EXPECT_TRUE(LineFile({file(), 0, 0}).write("third\n")); }
    EXPECT_EQ(folder.text("log"), "first\nsec\nthird\n");
    // The end that was added counts.
    std::ofstream(file()) << "ab";
    LineFile log({file(), 7, 1});
    for (const char* line : {"cde\n", "f\n"}) EXPECT_TRUE(log.write(line));
    EXPECT_EQ(folder.text("log.1"), "ab\ncde\n");
    EXPECT_EQ(folder.text("log"), "f\n");
}

TEST_F(LineFiles, AreRefusedWithTheReason) {
    const std::string path = folder.file("nowhere/log");
    try {
        LineFile refused({path, 0, 0});
        FAIL() << "opened";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), path + ": No such file or directory");
    }
    EXPECT_THROW(LineFile({folder.file(""), 0, 0}), std::runtime_error);
}

TEST_F(LineFiles, APipeWithoutAReaderIsRefusedInsteadOfWaitedFor) {
    ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
    EXPECT_THROW(LineFile({file(), 0, 0}), std::runtime_error);
}

TEST_F(LineFiles, AreMovedBeforeTheyGrowBeyondTheLimit) {
    LineFile log({file(), 8, 2});
    for (const char* line : {"aaa\n", "bbb\n", "ccc\n"}) EXPECT_TRUE(log.write(line));
    EXPECT_EQ(folder.text("log"), "ccc\n");
    EXPECT_EQ(folder.text("log.1"), "aaa\nbbb\n");
    EXPECT_FALSE(folder.has("log.2"));
}

TEST_F(LineFiles, KeepSoManyAndNoMore) {
    LineFile log({file(), 4, 2});
    for (const char* line : {"aaa\n", "bbb\n", "ccc\n", "ddd\n"}) EXPECT_TRUE(log.write(line));
    EXPECT_EQ(folder.text("log"), "ddd\n");
    EXPECT_EQ(folder.text("log.1"), "ccc\n");
    EXPECT_EQ(folder.text("log.2"), "bbb\n");
    EXPECT_FALSE(folder.has("log.3"));
}

TEST_F(LineFiles, AreEmptiedWhenNoneIsKept) {
    LineFile log({file(), 8, 0});
    for (const char* line : {"aaa\n", "bbb\n", "ccc\n"}) EXPECT_TRUE(log.write(line));
    EXPECT_EQ(folder.text("log"), "ccc\n");
    EXPECT_FALSE(folder.has("log.1"));
}

TEST_F(LineFiles, CountWhatStoodThereBefore) {
    { LineFile({file(), 0, 0}).write("before\n"); }
    LineFile log({file(), 8, 1});
    EXPECT_TRUE(log.write("now\n"));
    EXPECT_EQ(folder.text("log"), "now\n");
    EXPECT_EQ(folder.text("log.1"), "before\n");
}

TEST_F(LineFiles, ALineBeyondTheLimitHasAFileToItself) {
    LineFile log({file(), 8, 2});
    for (const char* line : {"aaa\n", "a long line\n", "bbb\n"}) EXPECT_TRUE(log.write(line));
    EXPECT_EQ(folder.text("log"), "bbb\n");
    EXPECT_EQ(folder.text("log.1"), "a long line\n");
    EXPECT_EQ(folder.text("log.2"), "aaa\n");
}

TEST_F(LineFiles, GoOnWhenTheyCantBeMovedAndTryAgainLater) {
    LineFile log({file(), 8, 1});
    // A folder that isn't empty can't be replaced by a file.
    std::filesystem::create_directories(folder.file("log.1/full"));
    for (const char* line : {"aaa\n", "bbb\n", "ccc\n"}) EXPECT_TRUE(log.write(line));
    EXPECT_EQ(folder.text("log"), "aaa\nbbb\nccc\n");
    std::filesystem::remove_all(folder.file("log.1"));
    for (const char* line : {"ddd\n", "eee\n"}) EXPECT_TRUE(log.write(line));
    EXPECT_EQ(folder.text("log"), "eee\n");
    EXPECT_EQ(folder.text("log.1"), "aaa\nbbb\nccc\nddd\n");
}

TEST_F(LineFiles, FullDisksCostALineAndNoMore) {
    LineFile full({"/dev/full", 0, 0});
    EXPECT_FALSE(full.write("lost\n"));
    EXPECT_FALSE(full.write("lost too\n"));
}

TEST_F(LineFiles, NoHalfLineStays) {
    const std::string path = file();
    const int answers = inChildWithFilesUpTo(10, [&] {
        LineFile log({path, 0, 0});
        return (log.write("12345\n") ? 1 : 0) + (log.write("too much\n") ? 2 : 0) + (log.write("78\n") ? 4 : 0);
    });
    EXPECT_EQ(answers, 1 + 4);
    EXPECT_EQ(folder.text("log"), "12345\n78\n");
}

TEST_F(LineFiles, WhatAnotherHasAddedMeanwhileStays) {
    LineFile log({file(), 0, 0});
    EXPECT_TRUE(log.write("mine\n"));
    EXPECT_TRUE(LineFile({file(), 0, 0}).write("other\n"));
    EXPECT_TRUE(log.write("mine\n"));
    EXPECT_EQ(folder.text("log"), "mine\nother\nmine\n");
}

TEST_F(LineFiles, SyncBearsWhatIsNoFile) {
    LineFile full({"/dev/full", 0, 0});
    full.sync();
    LineFile().sync();
    LineFile log({file(), 0, 0});
    EXPECT_TRUE(log.write("a\n"));
    log.sync();
    EXPECT_EQ(folder.text("log"), "a\n");
}
