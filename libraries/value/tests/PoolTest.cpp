// The pool of small blocks, and values that die elsewhere than they were made.
#include <otx/value/Pool.h>

#include <algorithm>
#include <atomic>
#include <set>
#include <thread>

#include "Thrown.h"

using otx::BlockPool;

TEST(Pool, BlocksOfEverySizeAreDistinctAndWritable) {
    std::vector<std::pair<unsigned char*, std::size_t>> blocks;
    std::set<void*> addresses;
    for (std::size_t size = 1; size <= BlockPool::largest + 64; ++size) {
        auto* const block = static_cast<unsigned char*>(BlockPool::take(size));
        std::fill_n(block, size, static_cast<unsigned char>(size));
        blocks.emplace_back(block, size);
        addresses.insert(block);
    }
    EXPECT_EQ(addresses.size(), blocks.size());
    for (const auto& [block, size] : blocks) {
        EXPECT_EQ(std::count(block, block + size, static_cast<unsigned char>(size)), static_cast<std::ptrdiff_t>(size));
        BlockPool::give(block, size);
    }
}

TEST(Pool, GivesTheSameBlockAgain) {
    if (OTX_POOL_PASSES_THROUGH != 0) GTEST_SKIP() << "sanitizers see every block";
    void* const block = BlockPool::take(64);
    BlockPool::give(block, 64);
    EXPECT_EQ(BlockPool::take(50), block);
    BlockPool::give(block, 64);
}

TEST(Pool, KeepsNoMoreThanItsLimit) {
    std::vector<void*> blocks;
    for (std::uint32_t number = 0; number < 3 * BlockPool::kept; ++number) blocks.push_back(BlockPool::take(48));
    for (void* const block : blocks) BlockPool::give(block, 48);
    // Whatever went back to the heap may come again, but only so many without asking it.
    std::set<void*> again;
    for (std::uint32_t number = 0; number < 3 * BlockPool::kept; ++number) again.insert(BlockPool::take(48));
    EXPECT_EQ(again.size(), 3u * BlockPool::kept);
    for (void* const block : again) BlockPool::give(block, 48);
}

TEST(Pool, ValuesMayDieOnOtherThreads) {
    std::vector<COtxValue> values;
    for (int number = 0; number < 5000; ++number) values.push_back(COtxInt(number));
    std::thread([moved = std::move(values)]() mutable { moved.clear(); }).join();
    COtxValue made;
    std::thread([&made] {
        made = COtxList(std::vector<COtxValue>(100, COtxString("from a thread that has ended")));
    }).join();
    EXPECT_EQ(made.List()[99].String(), "from a thread that has ended");
}

TEST(Pool, ValuesMayDieWhileTheirThreadEnds) {
    static std::atomic<int> deaths{0};
    struct Late {
        COtxValue value;
        ~Late() {
            // After the pool of this thread has closed, or before: the order is not ours.
            value = COtxList(std::vector<COtxValue>{COtxInt(1), COtxString("text")});
            value = COtxValue();
            ++deaths;
        }
    };
    for (int round = 0; round < 10; ++round) {
        std::thread([] {
            static thread_local Late early;
            early.value = COtxInt(1);
            const COtxValue opensThePool = COtxInt(2);
            static thread_local Late late;
            late.value = COtxInt(3);
        }).join();
    }
    EXPECT_EQ(deaths, 20);
}

TEST(Pool, HandlesAreCountedAtomically) {
    const COtxValue shared = COtxList(std::vector<COtxValue>{COtxInt(1)});
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([shared] {
            for (int round = 0; round < 20000; ++round) {
                const COtxValue copy = shared;
                const COtxValue element = copy.List()[0];
                ASSERT_EQ(element.Int(), 1);
            }
        });
    }
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(shared.GetBehaviourReference().use_count(), 1);
}
