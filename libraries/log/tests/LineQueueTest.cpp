// The queue of lines: order, loss, failing files, many threads.
#include "../src/LineQueue.h"
#include "Child.h"
#include "LogFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <thread>

namespace {

using Hvt::LineFile;
using Hvt::LineQueue;
using Hvt::LogOutput;

constexpr std::chrono::milliseconds aMinute{60'000};
constexpr std::chrono::milliseconds atOnce{0};

// Queues aren't destroyed: their threads go on.
LineQueue& newQueue(std::shared_ptr<LineFile> target) {
    static auto* const made = new std::vector<LineQueue*>;
    made->push_back(new LineQueue);
    made->back()->setTarget(std::move(target));
    return *made->back();
}

class Queues : public testing::Test {
protected:
    std::shared_ptr<LineFile> file(const std::string& name) const {
        return std::make_shared<LineFile>(Hvt::LogFile{folder.file(name), 0, 0});
    }

    LogFolder folder;
};

// A pipe that takes some lines and then nothing until it is read.
class Pipe {
public:
    explicit Pipe(const std::string& path) {
        ::mkfifo(path.c_str(), 0600);
        reader_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK);
        target_ = std::make_shared<LineFile>(Hvt::LogFile{path, 0, 0});
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        if (reader_ >= 0) ::close(reader_);
    }

    const std::shared_ptr<LineFile>& target() const { return target_; }
    void hangUp() { ::close(std::exchange(reader_, -1)); }

    // All lines up to the one of that text.
    std::vector<std::string> linesUpTo(const std::string& last) {
        std::vector<std::string> lines(1);
        ::fcntl(reader_, F_SETFL, 0);
        std::array<char, 4096> room{};
        for (ssize_t count = 0; (count = ::read(reader_, room.data(), room.size())) > 0;) {
            for (ssize_t place = 0; place < count; ++place) {
                if (const char character = room[static_cast<std::size_t>(place)]; character != '\n')
                    lines.back() += character;
                else if (lines.back() == last)
                    return lines;
                else
                    lines.emplace_back();
            }
        }
        return lines;
    }

private:
    int reader_ = -1;
    std::shared_ptr<LineFile> target_;
};

}  // namespace

TEST_F(Queues, WriteInTheOrderOfTheLines) {
    LineQueue& queue = newQueue(file("log"));
    std::string expected;
    for (int line = 0; line < 1000; ++line) {
        queue.push(std::to_string(line), false);
        expected += std::to_string(line) + '\n';
    }
    EXPECT_TRUE(queue.flush(aMinute));
    EXPECT_EQ(folder.text("log"), expected);
    EXPECT_EQ(queue.lostLines(), 0u);
}

TEST_F(Queues, FlushOfNothingIsDone) {
    LineQueue& queue = newQueue(file("log"));
    EXPECT_TRUE(queue.flush(atOnce));
    queue.drain(atOnce);
}

TEST_F(Queues, LinesGoWhereTheTargetWasWhenTheyCame) {
    LineQueue& queue = newQueue(file("old"));
    for (int line = 0; line < 100; ++line) queue.push("old", false);
    queue.setTarget(file("new"));
    for (int line = 0; line < 50; ++line) queue.push("new", true);
    EXPECT_TRUE(queue.flush(aMinute));
    EXPECT_EQ(folder.lines("old"), std::vector<std::string>(100, "old"));
    EXPECT_EQ(folder.lines("new"), std::vector<std::string>(50, "new"));
}

TEST_F(Queues, AFileThatCantBeWrittenCostsItsLines) {
    LineQueue& queue = newQueue(std::make_shared<LineFile>(Hvt::LogFile{"/dev/full", 0, 0}));
    for (int line = 0; line < 7; ++line) queue.push("lost", line == 3);
    queue.setTarget(file("log"));
    queue.push("kept", false);
    EXPECT_TRUE(queue.flush(aMinute));
    EXPECT_EQ(queue.lostLines(), 7u);
    EXPECT_EQ(folder.text("log"), "kept\n");
}

TEST_F(Queues, AReaderThatHangsUpCostsLinesAndNotTheProcess) {
    Pipe pipe(folder.file("pipe"));
    LineQueue& queue = newQueue(pipe.target());
    pipe.hangUp();
    queue.push("nobody hears", false);
    EXPECT_TRUE(queue.flush(aMinute));
    EXPECT_EQ(queue.lostLines(), 1u);
}

// The reader takes nothing until all is pushed, so a push that waited for it would never end.
TEST_F(Queues, AFullQueueLosesItsOldestLinesAndSaysSo) {
    constexpr std::size_t count = 3 * LogOutput::queueLines;
    Pipe pipe(folder.file("pipe"));
    LineQueue& queue = newQueue(pipe.target());
    for (std::size_t line = 0; line < count; ++line) queue.push(std::to_string(line), false);
    EXPECT_FALSE(queue.flush(atOnce));
    const std::uint64_t lost = queue.lostLines();
    const std::vector<std::string> lines = pipe.linesUpTo(std::to_string(count - 1));
    EXPECT_TRUE(queue.flush(aMinute));
    EXPECT_EQ(queue.lostLines(), lost);

    // The lines stand in order; each gap is told of by a line with its size.
    std::size_t next = 0;
    std::uint64_t told = 0;
    for (const std::string& line : lines) {
        std::size_t number = 0;
        if (line.front() == '(') {
            std::from_chars(line.data() + 1, line.data() + line.size(), number);
            EXPECT_EQ(line.substr(line.find(' ')), " lines of the log are lost)");
            told += number;
            next += number;
            continue;
        }
        ASSERT_EQ(line, std::to_string(next));
        ++next;
    }
    EXPECT_EQ(next, count);
    EXPECT_EQ(told, lost);
    EXPECT_GE(lost, LogOutput::queueLines / 2);
}

TEST_F(Queues, HoldSoManyBytesAndNoMore) {
    constexpr std::size_t size = std::size_t{1} << 20;
    constexpr std::size_t held = LogOutput::queueBytes / size;
    Pipe pipe(folder.file("pipe"));
    LineQueue& queue = newQueue(pipe.target());
    for (std::size_t line = 0; line < 4 * held; ++line) queue.push(std::string(size - 1, 'x'), false);
    queue.push("last", false);
    // The writer may have taken one queue full before its pipe was.
    EXPECT_GE(queue.lostLines(), 2 * held);
    const std::vector<std::string> lines = pipe.linesUpTo("last");
    EXPECT_TRUE(queue.flush(aMinute));
    // One of them tells of the loss.
    EXPECT_EQ(lines.size() - 1 + queue.lostLines(), 4 * held + 1);
}

TEST_F(Queues, ALineAboveAllBoundsStandsAlone) {
    LineQueue& queue = newQueue(file("log"));
    queue.push(std::string(LogOutput::queueBytes + 1, 'x'), false);
    EXPECT_TRUE(queue.flush(aMinute));
    EXPECT_EQ(folder.text("log").size(), LogOutput::queueBytes + 2);
    EXPECT_EQ(queue.lostLines(), 0u);
}

TEST_F(Queues, KeepLinesOfManyThreadsWholeAndInTheirOrder) {
    constexpr std::size_t threads = 4;
    constexpr int count = 2000;
    LineQueue& queue = newQueue(file("log"));
    std::vector<std::thread> running;
    for (std::size_t thread = 0; thread < threads; ++thread) {
        running.emplace_back([&queue, thread] {
            for (int line = 0; line < count; ++line)
                queue.push(std::to_string(thread) + ' ' + std::to_string(line), line % 100 == 0);
        });
    }
    for (std::thread& thread : running) thread.join();
    EXPECT_TRUE(queue.flush(aMinute));
    std::array<int, threads> next{};
    for (const std::string& line : folder.lines("log")) {
        const std::size_t thread = static_cast<std::size_t>(line.at(0) - '0');
        ASSERT_LT(thread, threads) << line;
        ASSERT_EQ(line, std::to_string(thread) + ' ' + std::to_string(next.at(thread)++));
    }
    for (const int written : next) EXPECT_EQ(written, count);
}

TEST_F(Queues, TargetsMayChangeWhileOthersPush) {
    LineQueue& queue = newQueue(file("0"));
    std::thread pushing([&queue] {
        for (int line = 0; line < 5000; ++line) queue.push("line", false);
    });
    for (int target = 1; target < 20; ++target) queue.setTarget(file(std::to_string(target)));
    pushing.join();
    EXPECT_TRUE(queue.flush(aMinute));
    std::size_t written = 0;
    for (int target = 0; target < 20; ++target) written += folder.lines(std::to_string(target)).size();
    EXPECT_EQ(written, 5000u);
}

// It has no thread to wait for, and would wait for ever.
TEST_F(Queues, AForkedChildIsNotHeldUp) {
    LineQueue& queue = newQueue(file("log"));
    queue.push("the thread runs", false);
    EXPECT_TRUE(queue.flush(aMinute));
    EXPECT_EQ(Child::answer([&] {
                  ::alarm(60);
                  queue.push("never written", false);
                  queue.drain(std::chrono::hours(24));
                  return 5;
              }),
              5);
}
