// Values nested deeply or in themselves: nothing of them may end the process.
#include <otx/Stack.h>
#include <otx/event/COtxEvent.h>
#include <otx/value/Pool.h>

#include "OnStack.h"
#include "Thrown.h"

namespace {

using tests::nested;
using tests::outOfBounds;

constexpr std::size_t million = 1000000;
// Deeper than the operations can go on a stack of a megabyte.
constexpr std::size_t tooDeep = 100000;

COtxValue nestedMap(std::size_t levels, COtxValue value = COtxMap()) {
    for (std::size_t level = 1; level < levels; ++level)
        value = COtxMap(std::map<const std::string, COtxValue>{{"k", value}});
    return value;
}

// A list that holds itself; its owner must break it.
class Cycle {
public:
    Cycle() { list.List().push_back(list); }
    ~Cycle() { list.List().clear(); }
    Cycle(const Cycle&) = delete;
    Cycle& operator=(const Cycle&) = delete;

    const COtxList list;
};

void refusesEverything(const COtxValue& value, const COtxValue& other) {
    EXPECT_EQ(OTX_THROWN_KIND(value.ToString()), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(value.ToJSON()), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(value == other), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(value < other), outOfBounds);
    EXPECT_EQ(OTX_THROWN_KIND(value > other), outOfBounds);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ToJSON()), "Value is nested too deeply or contains itself");
    // The stream never refuses.
    const bool isList = value.Type() == OTX::ValueType::List;
    EXPECT_EQ(tests::streamed(value), isList ? "<List>" : "<Map>");
}

}  // namespace

TEST(Deep, AMillionLevelsDieWithoutTheStack) {
    const COtxValue innermost = COtxList();
    const auto holders = [&] { return innermost.GetBehaviourReference().use_count(); };
    {
        const COtxValue list = nested(million, innermost);
        EXPECT_EQ(holders(), 2);
    }
    EXPECT_EQ(holders(), 1);
    tests::onStack(tests::smallStack, [&] {
        { const COtxValue list = nested(tooDeep, innermost); }
        EXPECT_EQ(holders(), 1);
        { const COtxValue map = nestedMap(tooDeep, innermost); }
        EXPECT_EQ(holders(), 1);
    });
}

TEST(Deep, SeveralBranchesDieTogether) {
    std::vector<COtxValue> branches;
    for (int branch = 0; branch < 10; ++branch) branches.push_back(nested(20000));
    const COtxValue held = branches[3];
    { const COtxValue list = COtxList(std::move(branches)); }
    EXPECT_EQ(held.List().size(), 1u);
}

TEST(Deep, EnumerationItemsAndEventsDieWithoutTheStack) {
    COtxValue item = COtxInt(1);
    COtxValue event = COtxInt(1);
    for (std::size_t level = 0; level < 2 * tooDeep; ++level) {
        item = COtxEnumerationItem(COtxString("T"), COtxString("n"), item);
        event = COtxEvent(OTX::EventKind::MonitorChange, event);
    }
    EXPECT_EQ(event.ToString().String(), "MonitorChange(<Event>)");
}

TEST(Deep, OperationsRefuseWhatTheStackDoesNotBear) {
    tests::onStack(1024 * 1024, [] {
        const COtxValue value = nested(tooDeep);
        refusesEverything(value, nested(tooDeep));
        EXPECT_EQ(OTX_THROWN_KIND(OTX::DeepCopy(value)), outOfBounds);
        const COtxValue map = nestedMap(tooDeep);
        refusesEverything(map, nestedMap(tooDeep));
        EXPECT_EQ(OTX_THROWN_KIND(OTX::DeepCopy(map)), outOfBounds);
    });
}

TEST(Deep, OperationsRefuseOnASmallStackAndStillDoUsefulWorkThere) {
    const COtxValue deep = nested(20000);
    const COtxValue other = nested(20000);
    const COtxValue modest = nested(50);
    tests::onStack(tests::smallStack, [&] {
        refusesEverything(deep, other);
        EXPECT_EQ(OTX_THROWN_KIND(OTX::DeepCopy(deep)), outOfBounds);
        EXPECT_EQ(tests::json(modest), std::string(50, '[') + std::string(50, ']'));
        EXPECT_TRUE(OTX::DeepCopy(modest) == modest);
    });
}

TEST(Deep, ValuesThatContainThemselvesAreRefused) {
    tests::onStack(1024 * 1024, [] {
        const Cycle one;
        const Cycle other;
        refusesEverything(one.list, other.list);
        const COtxValue copy = one.list;
        EXPECT_TRUE(one.list == copy);
        EXPECT_FALSE(one.list < copy);
    });
}

TEST(Deep, ValuesThatContainThemselvesAreCopiedAsSuch) {
    const Cycle cycle;
    const COtxValue copy = OTX::DeepCopy(cycle.list);
    EXPECT_EQ(copy.List().size(), 1u);
    EXPECT_EQ(copy.List()[0].GetBehaviourReference(), copy.GetBehaviourReference());
    EXPECT_NE(copy.GetBehaviourReference(), cycle.list.GetBehaviourReference());
    copy.List().clear();
}

TEST(Stack, KeepsAReserveAndLeavesSmallStacksUseful) {
    for (const std::size_t size : {tests::smallStack, std::size_t{1024 * 1024}}) {
        tests::onStack(size, [size] {
            EXPECT_FALSE(otx::stackIsLow());
            // A sanitizer keeps its own data of the thread on the stack.
            constexpr std::size_t part = OTX_POOL_PASSES_THROUGH != 0 ? 8 : 2;
            EXPECT_GT(otx::stackLeft(), size / part);
            EXPECT_LT(otx::stackLeft(), size);
            const std::size_t depth = tests::recurseUntil([] { return otx::stackIsLow(); });
            EXPECT_GT(depth, size / part / 2048);
            EXPECT_EQ(tests::recurseUntil([] { return otx::stackLeft() == 0; }), depth);
        });
    }
}

TEST(Stack, OfAnyLargerSizeCountsAs64Megabytes) {
    tests::onStack(std::size_t{256} * 1024 * 1024, [] { EXPECT_LE(otx::stackLeft(), 64u * 1024 * 1024); });
}

TEST(Stack, IsKnownOnTheMainThread) {
    EXPECT_FALSE(otx::stackIsLow());
    EXPECT_GT(otx::stackLeft(), 64u * 1024);
}
