// Whether a process could go on by itself.
#include "rest/HostThread.h"
#include "rest/RestWatch.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <future>
#include <mutex>
#include <thread>

namespace {

using namespace velkotx::host;

TEST(Rest, IsTwoEqualPictures) {
    const ThreadPicture before{{1, "a"}};
    const ThreadPicture after{{1, "b"}};
    RestDetector detector;
    EXPECT_FALSE(detector.look(before));
    EXPECT_FALSE(detector.look(after)) << "a thread has moved";
    EXPECT_FALSE(detector.look(std::nullopt));
    EXPECT_FALSE(detector.look(after)) << "some thread worked in between";
    EXPECT_TRUE(detector.look(after));
    EXPECT_FALSE(detector.look(after)) << "told already";
    EXPECT_TRUE(detector.look(after)) << "and nothing came of it";
    const ThreadPicture more{{1, "b"}, {2, "a"}};
    EXPECT_FALSE(detector.look(after));
    EXPECT_FALSE(detector.look(more)) << "a thread has come";
}

TEST(Rest, IsAWaitForThreadsWithoutALimit) {
#ifdef __x86_64__
    EXPECT_TRUE(waitsForThreads("202 0x7f4a 0x189 0x0 0x0 0x0 0xffffffff 0x7ffc 0x7ffa\n"));
    EXPECT_TRUE(waitsForThreads("202 0x7f4a 0x80 0x2 0x0 0x0 0x0 0x7ffc 0x7ffa\n"));
    EXPECT_FALSE(waitsForThreads("202 0x7f4a 0x189 0x0 0x7ffc10 0x0 0xffffffff 0x7ffc 0x7ffa\n")) << "a limit of time";
    EXPECT_FALSE(waitsForThreads("202 0x7f4a 0x81 0x1 0x0 0x0 0x0 0x7ffc 0x7ffa\n")) << "wakes";
    EXPECT_FALSE(waitsForThreads("230 0x0 0x0 0x7ffc 0x0 0x0 0x0 0x7ffc 0x7ffa\n")) << "a time to come";
    EXPECT_FALSE(waitsForThreads("7 0x7f4a 0x1 0xffffffff 0x0 0x0 0x0 0x7ffc 0x7ffa\n")) << "a file";
    EXPECT_TRUE(waitsForTheWorld("7 0x7f4a 0x1 0xffffffff 0x0 0x0 0x0 0x7ffc 0x7ffa\n"));
    EXPECT_FALSE(waitsForTheWorld("1 0x2 0x7f4a 0x10 0x0 0x0 0x0 0x7ffc 0x7ffa\n")) << "a reader";
#endif
    for (const char* line : {"running\n", "-1 0x7ffc 0x7ffa\n", "", "202\n", "202 0xzz\n"}) {
        EXPECT_FALSE(waitsForThreads(line)) << line;
        EXPECT_FALSE(line != std::string("202\n") && waitsForTheWorld(line)) << line;
    }
}

// A thread that waits as it is told until the test's end, and this one, which looks.
class RestOfThreads : public testing::Test {
protected:
    ~RestOfThreads() override {
        {
            const std::lock_guard guard(lock_);
            isOver_ = true;
            changed_.notify_all();
        }
        eventfd_write(over_, 1);
        if (waiting_.joinable())
            waiting_.join();
        close(over_);
    }
    void begin(std::function<void()> wait) { waiting_ = std::thread(std::move(wait)); }
    void waitForThread() {
        std::unique_lock guard(lock_);
        changed_.wait(guard, [this] { return isOver_; });
    }
    void waitWithLimit() {
        std::unique_lock guard(lock_);
        changed_.wait_for(guard, std::chrono::hours(1), [this] { return isOver_; });
    }
    void waitForFile() {
        pollfd waited{over_, POLLIN, 0};
        poll(&waited, 1, -1);
    }
    static bool looksLikeRest() { return pictureOfRest(HostThread::all()).has_value(); }
    // A thread needs a while to fall asleep.
    static void awaitRest() {
        while (!looksLikeRest())
            std::this_thread::yield();
    }
    static bool neverRests() {
        for (int look = 0; look < 200; ++look)
            if (looksLikeRest())
                return false;
        return true;
    }

    std::mutex lock_;
    std::condition_variable changed_;
    bool isOver_ = false;
    int turns_ = 0;
    const int over_ = eventfd(0, EFD_CLOEXEC);
    std::thread waiting_;
};

TEST_F(RestOfThreads, IsThereWhereTheyWaitForEachOther) {
    begin([this] { waitForThread(); });
    awaitRest();
    EXPECT_EQ(pictureOfRest({}), pictureOfRest({}));
}

TEST_F(RestOfThreads, IsNotThereWhileOneWaitsForATime) {
    begin([this] { waitWithLimit(); });
    EXPECT_TRUE(neverRests());
}

TEST_F(RestOfThreads, IsNotThereWhileOneWorks) {
    begin([this] {
        for (;;) {
            const std::lock_guard guard(lock_);
            if (isOver_)
                return;
        }
    });
    EXPECT_TRUE(neverRests());
}

TEST_F(RestOfThreads, IsNotThereWhileOneWaitsForAFile) {
    begin([this] { waitForFile(); });
    EXPECT_TRUE(neverRests());
}

TEST_F(RestOfThreads, IsThereWhileOneOfTheHostDoes) {
    begin([this] {
        const HostThread registered;
        waitForFile();
    });
    awaitRest();
}

TEST_F(RestOfThreads, HasNoEqualPictureBehindAMove) {
    begin([this] {
        std::unique_lock guard(lock_);
        while (!isOver_) {
            changed_.wait(guard);
            ++turns_;
        }
    });
    awaitRest();
    const auto before = pictureOfRest({});
    for (bool hasMoved = false; !hasMoved;) {
        const std::lock_guard guard(lock_);
        changed_.notify_all();
        hasMoved = turns_ > 0;
    }
    awaitRest();
    EXPECT_NE(pictureOfRest({}), before);
}

TEST_F(RestOfThreads, IsToldByTheWatch) {
    std::promise<void> rested;
    std::atomic<bool> isFirst{true};
    RestWatch watch([&] {
        if (isFirst.exchange(false))
            rested.set_value();
    });
    rested.get_future().wait();  // itself a wait for a thread
}

}  // namespace
