// Screens that lanes and the host open, write and close at once, until the run is cancelled.
#include "../Documents.h"
#include "../LaneDocuments.h"
#include "../ReactingHost.h"
#include "../ScreenDocuments.h"
#include "../ScreenTest.h"
#include "../Session.h"
#include "../ThreadCount.h"
#include "../Until.h"
#include "../Values.h"
#include "Stress.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace api;
using namespace stress;

constexpr std::array names{"p", "q", "modal", "InputDialog"};

std::string screensDocument() {
    const std::vector<ScreenArgument> arguments{{"inArg", "x", "x"}, {"inoutArg", "y", "y"}, {"inArg", "list", "list", "List"}};
    const std::string first = openScreen("a1", "p", arguments) + increment("a2", "x") + append("a3", "list") +
                              highlightScreen("a4", "q") + closeScreen("a5", "p");
    const std::string second = openScreen("b1", "q", arguments) + openScreen("b2", "p", arguments) + increment("b3", "y") +
                               closeScreen("b4", "q") +
                               assignTerm("b5", "ListVariable", "list", "ListCreate\"><itemType xsi:type=\"Integer\"/>");
    const std::string third = openScreen("c1", "modal", arguments, true) + inputDialog("c2", "t");
    return document(procedure("main", parallel("n1", {forEver("l1", first), forEver("l2", second), forEver("l3", third),
                                                      forEver("l4", inputDialog("d1", "t"))}) +
                                             doNothing("z1")),
                    integer("variable", "x", 0) + integer("variable", "y", 0) + listOf("variable", "list") +
                        handleOf("p", "p") + handleOf("q", "q") + text("variable", "t", ""));
}

// Does something of its own at some of the messages, until it is to be silent.
class RestlessHost : public velkotx::HostEventSink {
public:
    explicit RestlessHost(std::uint64_t seed) : drawn_(seed) {}

    void sendRequest(const COtxValue& message) override {
        const Inside inside(*this);
        if (isSilent_) return;
        const bool isChange = entry(message, "eventType") == changed;
        static_cast<void>(json(message));
        const std::uint64_t chance = draw();
        if (chance % 8 == 0)
            act(chance / 8);
        else if (isChange && chance % 64 == 1)
            throw std::runtime_error("no");
    }

    // What a host does at any moment, on any thread.
    void act(std::uint64_t chance) {
        const std::string screen = names[chance % names.size()];
        std::string answer;
        switch (chance / names.size() % 4) {
            case 0: answer = closedByOperator(*sequencer, screen); break;
            case 1: answer = outValue(*sequencer, screen, "y", "7"); break;
            case 2: answer = outValue(*sequencer, screen, "result", R"("answer")"); break;
            default: outcome_ = sequencer->Control("status", COtxValue()).Type() == OTX::ValueType::Map; break;
        }
        EXPECT_TRUE(answer.empty() || answer == "deadlock" || answer.starts_with("Unknown ")) << answer;
    }
    std::uint64_t draw() {
        std::uint64_t mixed = drawn_.fetch_add(0x9E3779B97F4A7C15ULL);
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9ULL;
        return mixed ^ (mixed >> 31U);
    }
    // From now on it calls nobody.
    void beSilent() {
        isSilent_ = true;
        waitUntil("the last call", [this] { return inside_ == 0; });
    }

    velkotx::Sequencer* sequencer = nullptr;

private:
    struct Inside {
        explicit Inside(RestlessHost& entered) : host(entered) { ++host.inside_; }
        ~Inside() { --host.inside_; }
        Inside(const Inside&) = delete;
        Inside& operator=(const Inside&) = delete;
        RestlessHost& host;
    };

    std::atomic<std::uint64_t> drawn_;
    std::atomic<bool> isSilent_{false};
    std::atomic<bool> outcome_{false};
    std::atomic<int> inside_{0};
};

void round(const std::string& document, std::mt19937_64& random) {
    const auto host = std::make_shared<RestlessHost>(random());
    Session session(document, host);
    host->sequencer = &session.sequencer();
    session.start();
    std::atomic<bool> isOver{false};
    std::vector<std::thread> operators;
    for (int number = 0; number < 2; ++number) {
        operators.emplace_back([&, own = std::mt19937_64(random())]() mutable {
            while (!isOver) {
                host->act(own());
                dawdle(own, 10);
            }
        });
    }
    dawdle(random, 22);
    while (!session.isOver()) session.control("cancel");
    isOver = true;
    for (auto& one : operators) one.join();
    ASSERT_EQ(session.outcome(), "failure cancelled: ");
    host->beSilent();
}

TEST(ScreenStress, ComeAndGoFromAllSidesUntilTheRunIsCancelled) {
    auto random = generator();
    const std::string text = screensDocument();
    const std::size_t threads = threadCount();
    for (int number = 0; number < 25 * factor() && !testing::Test::HasFailure(); ++number) {
        round(text, random);
        ASSERT_TRUE(isThreadCountReached(threads)) << "after round " << number;
    }
}

}  // namespace
