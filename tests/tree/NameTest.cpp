// Interned names: identity, life, threads.
#include <schema/Name.h>

#include <gtest/gtest.h>

#include <barrier>
#include <thread>
#include <vector>

namespace {

using otxns::Name;

TEST(Name, EqualTextsAreOneName) {
    const Name first("speed");
    const Name second(std::string("spe") + "ed");
    EXPECT_EQ(first, second);
    EXPECT_EQ(first.identity(), second.identity());
    EXPECT_NE(first, Name("Speed"));
    EXPECT_EQ(&first.text(), &second.text());
}

TEST(Name, TheEmptyNameIsTheDefault) {
    EXPECT_EQ(Name(), Name(""));
    EXPECT_TRUE(Name().empty());
    EXPECT_EQ(Name().text(), "");
}

TEST(Name, FindKnowsOnlyNamesThatAreHeld) {
    EXPECT_FALSE(Name::find("nobody holds this").has_value());
    {
        const Name held("nobody holds this");
        const Name copy = held;
        ASSERT_TRUE(Name::find("nobody holds this").has_value());
        EXPECT_EQ(*Name::find("nobody holds this"), copy);
    }
    EXPECT_FALSE(Name::find("nobody holds this").has_value());
}

TEST(Name, ThreadsMakeAndDropTheSameNamesAtOnce) {
    constexpr int threads = 4;
    std::barrier start(threads);
    std::vector<std::thread> running;
    for (int t = 0; t < threads; ++t)
        running.emplace_back([&start] {
            start.arrive_and_wait();
            for (int i = 0; i < 20'000; ++i) {
                const std::string text = "shared" + std::to_string(i % 7);
                const Name name(text);
                const Name copy = name;
                ASSERT_EQ(copy.text(), text);
            }
        });
    for (auto& thread : running) thread.join();
    EXPECT_FALSE(Name::find("shared0").has_value());
}

}  // namespace
