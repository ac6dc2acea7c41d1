// The place in a loader's message.
#include "program/Place.h"

#include <gtest/gtest.h>

namespace {

using velkotx::host::takePlace;

TEST(Place, IsTakenOut) {
    const auto placed = takePlace("Parsing Exception: :12:8 error: unexpected end");
    EXPECT_EQ(placed.place, ":12:8");
    EXPECT_EQ(placed.message, "Parsing Exception: unexpected end");
}

TEST(Place, TheFirstOneCounts) {
    const auto placed = takePlace(":1:2 error: one\n:3:4 error: two");
    EXPECT_EQ(placed.place, ":1:2");
    EXPECT_EQ(placed.message, "one\n:3:4 error: two");
}

TEST(Place, AMessageWithoutOneStaysAsItIs) {
    for (const char* message : {"no such file", "some error: here", "x:1:2 error: y", ":1 error: y", ":1: error: y",
                                "::2 error: y", " error: "}) {
        EXPECT_EQ(takePlace(message).place, "") << message;
        EXPECT_EQ(takePlace(message).message, message);
    }
}

}  // namespace
