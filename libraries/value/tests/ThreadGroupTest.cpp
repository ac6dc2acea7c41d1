// Groups of threads.
#include <otx/event/ThreadGroup.h>

#include <gtest/gtest.h>

#include <atomic>
#include <future>

namespace {

using HvtUtil::ThreadGroup;

std::thread::id self() { return std::this_thread::get_id(); }

}  // namespace

TEST(ThreadGroup, ARootIsTheFirstMemberOfItsGroup) {
    ThreadGroup groups;
    EXPECT_FALSE(groups.RootOf(self()));
    groups.AddRoot();
    EXPECT_EQ(groups.RootOf(self()), self());
    groups.AddRoot();
    EXPECT_EQ(groups.RootOf(self()), self());
    groups.RemoveRoot(self());
    EXPECT_FALSE(groups.RootOf(self()));
}

TEST(ThreadGroup, ALaneJoinsTheGroupOfItsParentAndLeavesIt) {
    ThreadGroup groups;
    groups.AddRoot();
    const std::thread::id root = self();
    std::thread([&] {
        groups.Join(root);
        EXPECT_EQ(groups.RootOf(self()), root);
        const std::thread::id lane = self();
        std::thread([&] {
            groups.Join(lane);
            EXPECT_EQ(groups.RootOf(self()), root);
            groups.Leave();
            EXPECT_FALSE(groups.RootOf(self()));
        }).join();
        groups.Leave();
    }).join();
    EXPECT_EQ(groups.RootOf(root), root);
}

TEST(ThreadGroup, AParentInNoGroupIsIgnored) {
    ThreadGroup groups;
    const std::thread::id parent = self();
    std::thread([&] {
        groups.Join(parent);
        EXPECT_FALSE(groups.RootOf(self()));
        groups.Leave();
        groups.RemoveRoot(parent);
    }).join();
}

TEST(ThreadGroup, RemovingARootEndsTheGroupForAll) {
    ThreadGroup groups;
    groups.AddRoot();
    const std::thread::id root = self();
    std::thread([&] {
        groups.Join(root);
        groups.RemoveRoot(root);
        EXPECT_FALSE(groups.RootOf(self()));
    }).join();
    EXPECT_FALSE(groups.RootOf(root));
}

TEST(ThreadGroup, GroupsStayApart) {
    ThreadGroup groups;
    groups.AddRoot();
    const std::thread::id first = self();
    std::promise<std::thread::id> second;
    std::promise<void> done;
    std::thread other([&] {
        groups.AddRoot();
        second.set_value(self());
        done.get_future().wait();
    });
    const std::thread::id otherRoot = second.get_future().get();
    std::thread([&] {
        groups.Join(otherRoot);
        EXPECT_EQ(groups.RootOf(self()), otherRoot);
    }).join();
    EXPECT_EQ(groups.RootOf(first), first);
    done.set_value();
    other.join();
}

TEST(ThreadGroup, BearsManyThreads) {
    ThreadGroup groups;
    groups.AddRoot();
    const std::thread::id root = self();
    std::atomic<int> members{0};
    std::vector<std::thread> lanes;
    for (int lane = 0; lane < 8; ++lane) {
        lanes.emplace_back([&] {
            for (int round = 0; round < 200; ++round) {
                groups.Join(root);
                if (groups.RootOf(self()) == root) ++members;
                groups.Leave();
            }
        });
    }
    for (auto& lane : lanes) lane.join();
    EXPECT_EQ(members, 1600);
    EXPECT_EQ(groups.RootOf(root), root);
}
