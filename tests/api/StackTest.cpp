// Sequences and documents that would need more stack than there is.
#include "BackgroundRun.h"
#include "Documents.h"
#include "StopHost.h"

#include <gtest/gtest.h>

#include <pthread.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using namespace api;

constexpr std::size_t smallStack = 256 * 1024;

// Does a piece of work on a thread with a stack of that size.
void onThread(std::size_t stackSize, const std::function<void()>& work) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, stackSize), 0);
    pthread_t thread{};
    const auto start = [](void* argument) -> void* {
        (*static_cast<const std::function<void()>*>(argument))();
        return nullptr;
    };
    const int created = pthread_create(&thread, &attributes, start, const_cast<std::function<void()>*>(&work));
    pthread_attr_destroy(&attributes);
    ASSERT_EQ(created, 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
}

std::string nested(const std::string& open, const std::string& close, int depth, const std::string& inside = "") {
    std::string text;
    for (int level = 0; level < depth; ++level) text += open;
    text += inside;
    for (int level = 0; level < depth; ++level) text += close;
    return text;
}

std::string outcomeOfLoading(const std::string& text) {
    try {
        load(text);
        return "loaded";
    } catch (const std::runtime_error& failure) {
        return std::string(failure.what()).substr(0, 30);
    }
}

const std::string endless = document(
    procedure("main", call("a1", "again")) + procedure("again", call("a2", "again")) +
        procedure("guarded", handler("h1", call("a3", "guarded"), call("a4", "guarded"), call("a5", "guarded"))) +
        procedure("ping", forEver("l1", call("a6", "pong"))) + procedure("pong", forEver("l2", call("a7", "ping"))) +
        procedure("look", set("a8", "o", 1), integer("outParam", "o", 0)));

class Stack : public testing::Test {
protected:
    void SetUp() override {
        sequencer = load(endless);
        sequencer->SetHost(host);
    }

    std::shared_ptr<StopHost> host = std::make_shared<StopHost>();
    std::shared_ptr<velkotx::Sequencer> sequencer;
};

TEST_F(Stack, OfTheMainThreadRunsOut) {
    for (const char* name : {"main", "guarded", "ping"})
        EXPECT_EQ(outcomeOfRun(*sequencer, name), "failure InternalError: Stack exhausted") << name;
    EXPECT_EQ(outcomeOfRun(*sequencer, "look"), R"({"o":1})");
}

TEST_F(Stack, OfASmallThreadRunsOut) {
    onThread(smallStack, [this] {
        for (const char* name : {"main", "guarded", "ping"})
            EXPECT_EQ(outcomeOfRun(*sequencer, name), "failure InternalError: Stack exhausted") << name;
        EXPECT_EQ(outcomeOfRun(*sequencer, "look"), R"({"o":1})");
    });
}

TEST_F(Stack, RunsOutAgainAndAgain) {
    for (int round = 0; round < 5; ++round)
        EXPECT_EQ(outcomeOfRun(*sequencer, "main"), "failure InternalError: Stack exhausted");
}

TEST_F(Stack, OfASmallThreadIsEnoughForAUsualRun) {
    const std::string text = document(
        procedure("main", handler("h1", call("a1", "one"), ""), integer("outParam", "o", 7)) +
        procedure("one", call("a2", "two")) + procedure("two", call("a3", "three")) + procedure("three", throwUser("t1", "q", "t")));
    onThread(smallStack, [&] {
        const auto small = load(text);
        small->SetHost(host);
        EXPECT_EQ(outcomeOfRun(*small, "main"), R"({"o":7})");
    });
}

// A run that nests its nodes as deep as the document does.
TEST_F(Stack, OfASmallThreadMeetsADeeplyNestedFlow) {
    const std::string deep = document(procedure("main", nested("<group id=\"g\"><realisation>", "</realisation></group>", 1000),
                                                integer("outParam", "o", 7)));
    const auto loaded = load(deep);
    loaded->SetHost(host);
    EXPECT_EQ(outcomeOfRun(*loaded, "main"), R"({"o":7})");
    onThread(smallStack, [&] {
        const std::string outcome = outcomeOfRun(*loaded, "main");
        EXPECT_TRUE(outcome == R"({"o":7})" || outcome == "failure InternalError: Stack exhausted") << outcome;
    });
}

// --- loading

std::string documentNested(int depth) {
    return document(procedure("main", nested("<group id=\"g\"><realisation>", "</realisation></group>", depth / 2)));
}

TEST(StackOfLoading, RefusesADocumentThatIsNestedTooDeep) {
    EXPECT_EQ(outcomeOfLoading(documentNested(20000)), "VelkOTX XML Parsing Exception:");
    EXPECT_EQ(outcomeOfLoading(documentNested(100000)), "VelkOTX XML Parsing Exception:");
    EXPECT_EQ(outcomeOfLoading(documentNested(200)), "loaded");
}

TEST(StackOfLoading, OnASmallThreadRefusesWhatHasNoRoom) {
    const std::string deep = documentNested(9000);
    const std::string tooDeep = documentNested(100000);
    const std::string shallow = documentNested(24);
    onThread(smallStack, [&] {
        EXPECT_EQ(outcomeOfLoading(deep), "VelkOTX XML Parsing Exception:");
        EXPECT_EQ(outcomeOfLoading(tooDeep), "VelkOTX XML Parsing Exception:");
        EXPECT_EQ(outcomeOfLoading(shallow), "loaded");
    });
}

TEST(StackOfLoading, CountsIgnoredElementsToo) {
    std::string text = document(procedure("main", ""));
    text.insert(text.find("</otx>"), nested("<unknown>", "</unknown>", 20000));
    EXPECT_EQ(outcomeOfLoading(text), "VelkOTX XML Parsing Exception:");
}

}  // namespace
