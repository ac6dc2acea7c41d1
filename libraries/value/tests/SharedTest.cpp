// Values that hold another one several times, and that another one, and so on: few values, but no end of places.
#include <otx/value/Functions.h>

#include "Thrown.h"

namespace {

using tests::outOfBounds;

constexpr int manyLevels = 60;

COtxValue lists(int levels) {
    COtxValue value = COtxInt(1);
    for (int level = 0; level < levels; ++level) value = COtxList(std::vector<COtxValue>{value, value});
    return value;
}

COtxValue maps(int levels) {
    COtxValue value = COtxInt(1);
    for (int level = 0; level < levels; ++level)
        value = COtxMap(std::map<const std::string, COtxValue>{{"a", value}, {"b", value}});
    return value;
}

const std::string tooManyTimes = "Value holds others too many times";

}  // namespace

TEST(Shared, ListsOfListsEnd) {
    const COtxValue value = lists(manyLevels);
    EXPECT_EQ(OTX_THROWN_KIND(value == lists(manyLevels)), outOfBounds);
    EXPECT_EQ(OTX_THROWN_TEXT(value < lists(manyLevels)), tooManyTimes);
    EXPECT_EQ(OTX_THROWN_TEXT(value.ToString()), tooManyTimes);
    EXPECT_EQ(tests::streamed(value), "<List>");
}

TEST(Shared, MapsOfMapsEnd) {
    const COtxValue value = maps(manyLevels);
    EXPECT_EQ(OTX_THROWN_TEXT(value == maps(manyLevels)), tooManyTimes);
    EXPECT_EQ(OTX_THROWN_TEXT(value < maps(manyLevels)), tooManyTimes);
}

TEST(Shared, ACopySharesAsTheOriginalDoes) {
    const COtxValue copy = OTX::DeepCopy(lists(manyLevels));
    EXPECT_EQ(&copy.List()[0].List(), &copy.List()[1].List());
}

// Each walk is counted for itself, also after one that was refused.
TEST(Shared, WhatFitsIsWalkedOverAgainAndAgain) {
    constexpr int levels = 22;
    const COtxValue value = lists(levels);
    const COtxValue other = lists(levels);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(value == other);
        EXPECT_EQ(OTX_THROWN_KIND(lists(manyLevels) == lists(manyLevels)), outOfBounds);
    }
    // Such a value is met in 2 to the power of its levels, less one, places.
    EXPECT_TRUE(lists(24) == lists(24));
    EXPECT_EQ(OTX_THROWN_KIND(lists(25) == lists(25)), outOfBounds);
}

TEST(Shared, ALongListIsNotWhatIsMeant) {
    const COtxValue numbers = COtxList(std::vector<COtxValue>((1 << 24) + 1, COtxInt(1)));
    EXPECT_EQ(OTX::DeepCopy(numbers).List().size(), numbers.List().size());
    EXPECT_TRUE(numbers == OTX::DeepCopy(numbers));
}
