// One file in the hands of several threads, stores and processes, and processes that are killed.
#include "PersistenceFolder.h"

#include "persistence/Database.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <future>
#include <memory>
#include <string_view>
#include <thread>
#include <vector>

namespace velkotx::host {
namespace {

using namespace testing;

using PersistenceStores = PersistenceFolder;
using PersistenceProcesses = PersistenceFolder;

COtxValue numbered(int number) {
    return COtxList(std::vector<COtxValue>{COtxInt(number), COtxString(std::string(static_cast<std::size_t>(number % 7) * 900, 'x'))});
}

int numberOf(const COtxValue& value) {
    return static_cast<int>(value.List()[0].Int());
}

// A child of the test, which ends with status 0 unless something is thrown.
class Child {
public:
    explicit Child(const std::function<void()>& work) : id_(fork()) {
        if (id_ != 0)
            return;
        try {
            work();
            _exit(0);
        } catch (const std::exception& failure) {
            const std::string_view words = failure.what();
            [[maybe_unused]] const auto written = write(STDERR_FILENO, words.data(), words.size());
            _exit(1);
        }
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() {
        if (!ended_)
            kill();
        end();
    }

    void kill() const { ::kill(id_, SIGKILL); }
    bool endsWell() {
        end();
        return WIFEXITED(status_) && WEXITSTATUS(status_) == 0;
    }
    bool wasKilled() {
        end();
        return WIFSIGNALED(status_) && WTERMSIG(status_) == SIGKILL;
    }

private:
    void end() {
        if (!ended_)
            waitpid(id_, &status_, 0);
        ended_ = true;
    }

    const pid_t id_;
    int status_ = 0;
    bool ended_ = false;
};

// Numbers from a child to the test.
class Pipe {
public:
    Pipe() { EXPECT_EQ(pipe(ends_), 0); }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        close(ends_[0]);
        closeWriting();
    }
    void tell(int number) const {
        if (write(ends_[1], &number, sizeof number) != sizeof number)
            throw std::runtime_error("nobody listens");
    }
    // False at the end.
    bool hear(int& number) const { return read(ends_[0], &number, sizeof number) == sizeof number; }
    void closeWriting() {
        if (ends_[1] >= 0)
            close(ends_[1]);
        ends_[1] = -1;
    }

private:
    int ends_[2];
};

TEST_F(PersistenceStores, OnOneFileSeeEachOthersValues) {
    SqlitePersistence one(file);
    SqlitePersistence other(file);
    one.Save("x", COtxInt(1));
    EXPECT_EQ(loaded(other, "x").Int(), 1);
    other.Save("x", COtxInt(2));
    EXPECT_EQ(loaded(one, "x").Int(), 2);
}

TEST_F(PersistenceStores, ThatAreUsedByManyThreadsKeepEveryValue) {
    constexpr int threads = 4;
    constexpr int saves = 200;
    SqlitePersistence one(file);
    SqlitePersistence other(file);
    const auto work = [&](int thread) {
        SqlitePersistence& store = thread % 2 == 0 ? one : other;
        const std::string name = "own" + std::to_string(thread);
        for (int number = 0; number < saves; ++number) {
            store.Save(name, numbered(number));
            EXPECT_EQ(numberOf(loaded(store, name)), number);
            store.Save("common", numbered(number));
            EXPECT_EQ(loaded(store, "common").Type(), OTX::ValueType::List);
        }
    };
    std::vector<std::thread> running;
    for (int thread = 0; thread < threads; ++thread)
        running.emplace_back(work, thread);
    for (std::thread& thread : running)
        thread.join();
    for (int thread = 0; thread < threads; ++thread)
        EXPECT_EQ(numberOf(loaded(one, "own" + std::to_string(thread))), saves - 1);
}

TEST_F(PersistenceStores, ThatComeToANewFileWhileAnotherWritesItWait) {
    Database other(file);
    other.execute("BEGIN IMMEDIATE");
    auto opening = std::async(std::launch::async, [&] { SqlitePersistence(file).Save("x", COtxInt(1)); });
    // A store that doesn't wait fails at once.
    EXPECT_EQ(opening.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    other.execute("ROLLBACK");
    EXPECT_NO_THROW(opening.get());
}

// The forking tests come in processes of their own, without threads.
TEST_F(PersistenceProcesses, ThatSaveAtOnceLoseNothing) {
    constexpr int processes = 3;
    constexpr int rounds = 20;
    constexpr int saves = 20;
    {
        std::vector<std::unique_ptr<Child>> children;
        for (int process = 0; process < processes; ++process)
            children.push_back(std::make_unique<Child>([&, process] {
                // The file is made, opened and closed by all of them at once, too.
                for (int round = 0; round < rounds; ++round) {
                    SqlitePersistence store(file);
                    for (int number = 0; number < saves; ++number) {
                        store.Save(std::to_string(process) + '.' + std::to_string(number), numbered(round));
                        store.Save("common", numbered(round));
                        if (numberOf(loaded(store, std::to_string(process) + '.' + std::to_string(number))) != round)
                            throw std::runtime_error("another value");
                    }
                }
            }));
        for (const auto& child : children)
            EXPECT_TRUE(child->endsWell());
    }
    SqlitePersistence store(file);
    EXPECT_EQ(numberOf(loaded(store, "common")), rounds - 1);
    for (int process = 0; process < processes; ++process)
        for (int number = 0; number < saves; ++number)
            EXPECT_EQ(numberOf(loaded(store, std::to_string(process) + '.' + std::to_string(number))), rounds - 1);
}

TEST_F(PersistenceProcesses, ThatAreKilledLoseNoSavedValue) {
    for (int heardBeforeTheKill = 0; heardBeforeTheKill < 200; heardBeforeTheKill += 5) {
        std::filesystem::remove(file);
        std::filesystem::remove(file + "-wal");
        std::filesystem::remove(file + "-shm");
        Pipe pipe;
        Child child([&] {
            SqlitePersistence store(file);
            for (int number = 1;; ++number) {
                store.Save("value" + std::to_string(number % 10), numbered(number));
                pipe.tell(number);
            }
        });
        pipe.closeWriting();
        int last = 0;
        for (int heard = 0; heard < heardBeforeTheKill; ++heard)
            ASSERT_TRUE(pipe.hear(last));
        child.kill();
        while (pipe.hear(last)) {
        }
        EXPECT_TRUE(child.wasKilled());
        SqlitePersistence store(file);
        for (int number = std::max(1, last - 9); number <= last; ++number) {
            const COtxValue value = loaded(store, "value" + std::to_string(number % 10));
            ASSERT_EQ(value.Type(), OTX::ValueType::List) << number;
            // The save after the last one that was told may have been done too.
            EXPECT_TRUE(numberOf(value) == number || numberOf(value) == last + 1) << numberOf(value) << " for " << number;
            EXPECT_EQ(value, numbered(numberOf(value)));
        }
    }
}

TEST_F(PersistenceProcesses, ThatAreKilledDontDisturbTheOthers) {
    SqlitePersistence(file).Save("x", COtxInt(0));
    Child survivor([&] {
        SqlitePersistence store(file);
        for (int number = 1; number <= 2000; ++number) {
            store.Save("survivor", numbered(number));
            if (numberOf(loaded(store, "survivor")) != number)
                throw std::runtime_error("another value");
        }
    });
    for (int round = 0; round < 20; ++round) {
        Pipe pipe;
        Child victim([&] {
            SqlitePersistence store(file);
            for (int number = 1;; ++number) {
                store.Save("victim", numbered(number));
                pipe.tell(number);
            }
        });
        pipe.closeWriting();
        int last = 0;
        for (int heard = 0; heard <= round; ++heard)
            ASSERT_TRUE(pipe.hear(last));
        victim.kill();
        while (pipe.hear(last)) {
        }
        EXPECT_TRUE(victim.wasKilled());
        SqlitePersistence store(file);
        EXPECT_GE(numberOf(loaded(store, "victim")), last);
        EXPECT_LE(numberOf(loaded(store, "victim")), last + 1);
    }
    EXPECT_TRUE(survivor.endsWell());
    SqlitePersistence store(file);
    EXPECT_EQ(numberOf(loaded(store, "survivor")), 2000);
}

// Kills nobody: what stands in the file and its log at each moment is what a killed process would leave.
TEST_F(PersistenceProcesses, WouldFindEveryValueAfterEachSave) {
    SqlitePersistence store(file);
    const std::string original = file;
    for (int number = 1; number <= 30; ++number) {
        store.Save("x", numbered(number));
        file = (folder / ("copy" + std::to_string(number))).string();
        std::filesystem::copy_file(original, file);
        std::filesystem::copy_file(original + "-wal", file + "-wal");
        SqlitePersistence copy(file);
        EXPECT_EQ(numberOf(loaded(copy, "x")), number);
        file = original;
    }
}

TEST_F(PersistenceProcesses, ThatHoldTheFileAreWaitedFor) {
    { const SqlitePersistence made(file); }
    Pipe holding;
    Pipe released;
    Child holder([&] {
        sqlite3* connection = nullptr;
        int number = 0;
        if (sqlite3_open(file.c_str(), &connection) != SQLITE_OK ||
            sqlite3_exec(connection, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error("no lock");
        holding.tell(1);
        released.hear(number);
        sqlite3_exec(connection, "COMMIT", nullptr, nullptr, nullptr);
        sqlite3_close(connection);
    });
    int number = 0;
    ASSERT_TRUE(holding.hear(number));
    SqlitePersistence store(file);
    COtxValue value;
    EXPECT_FALSE(store.Load("x", value)) << "opening and loading wait for nobody";
    std::thread saving([&] { store.Save("x", COtxInt(1)); });
    released.tell(1);
    saving.join();
    EXPECT_TRUE(holder.endsWell());
    EXPECT_EQ(loaded(store, "x").Int(), 1);
}

}  // namespace
}  // namespace velkotx::host
