// The group of threads that a sequencer begins and ends.
#include "Documents.h"
#include "LaneDocuments.h"

#include <otx/event/COtxEventSource.h>
#include <velkotx/Sequencer.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

namespace {

using namespace api;

const std::string text = document(procedure("main", doNothing("a1")));

HvtUtil::ThreadGroup& groups() { return COtxEventSource::ThreadGroup(); }

// On a thread of its own, which no other test has made the root of anything.
template <class Work>
void alone(Work work) {
    std::thread(work).join();
}

TEST(Group, HasTheThreadThatMakesTheSequencerAsItsRoot) {
    alone([] {
        const auto self = std::this_thread::get_id();
        EXPECT_FALSE(groups().RootOf(self).has_value());
        auto sequencer = load(text);
        EXPECT_EQ(groups().RootOf(self), self);
        sequencer.reset();
        EXPECT_FALSE(groups().RootOf(self).has_value());
    });
}

// It ends the group of the thread on which it ends, and no other. This is meant.
TEST(Group, StaysWhenTheSequencerEndsOnAnotherThread) {
    alone([] {
        const auto self = std::this_thread::get_id();
        auto sequencer = load(text);
        alone([&] {
            const auto own = load(text);
            const auto other = std::this_thread::get_id();
            EXPECT_EQ(groups().RootOf(other), other);
            sequencer.reset();
            EXPECT_FALSE(groups().RootOf(other).has_value());
        });
        EXPECT_EQ(groups().RootOf(self), self);
        groups().RemoveRoot(self);
    });
}

}  // namespace
