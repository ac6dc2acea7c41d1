// The channel: timing of UDS, the order of requests, and its end.
#include "DiagUdsBench.h"

#include <atomic>
#include <thread>

namespace velkotx::host {
namespace {

using namespace testing;

class DiagUdsChannel : public UdsBench {};

TEST_F(DiagUdsChannel, AnswersAtOnceOnTheCallersThread) {
    answer({{{0x62, 0xF1, 0x90, 0x41}}});
    const auto client = std::make_shared<Client>();
    EXPECT_TRUE(channel->submit({{0x22, 0xF1, 0x90}, false}, client));
    EXPECT_EQ(client->thread(), std::this_thread::get_id());
    const auto outcome = client->await();
    EXPECT_EQ(outcome.end, End::Answered);
    ASSERT_EQ(outcome.responses.size(), 1u);
    EXPECT_EQ(outcome.responses[0].bytes, (Pdu{0x62, 0xF1, 0x90, 0x41}));
    EXPECT_EQ(outcome.responses[0].controlUnit, "Engine");
}

TEST_F(DiagUdsChannel, LeavesWaitingToItsThread) {
    answer({{{0x7E, 0x00}, 20ms}});
    const auto client = std::make_shared<Client>();
    EXPECT_FALSE(channel->submit({{0x3E, 0x00}, false}, client));
    EXPECT_EQ(client->await().end, End::Answered);
    EXPECT_NE(client->thread(), std::this_thread::get_id());
    EXPECT_EQ(client->await().waited, 20ms);
}

TEST_F(DiagUdsChannel, GivesUpAfterP2) {
    const auto outcome = execute({0x3E, 0x00});
    EXPECT_EQ(outcome.end, End::Silent);
    EXPECT_EQ(outcome.waited, 50ms);
}

TEST_F(DiagUdsChannel, AnswerOnTheLastMicrosecondCounts) {
    answer({{{0x7E, 0x00}, 50ms}});
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Answered);
}

TEST_F(DiagUdsChannel, AnswerBehindP2IsSilenceAndIsNotTakenForTheNext) {
    answer({{{0x62, 0x00, 0x01}, 50001us}});
    EXPECT_EQ(execute({0x22, 0x00, 0x01}).end, End::Silent);
    network->clock.advance(1ms);
    answer({{{0x62, 0x00, 0x02}}});
    EXPECT_EQ(execute({0x22, 0x00, 0x02}).responses.at(0).bytes, (Pdu{0x62, 0x00, 0x02}));
}

TEST_F(DiagUdsChannel, OwnTimesHold) {
    UdsTiming timing;
    timing.p2 = 100ms;
    channel->setTiming(timing);
    answer({{{0x7E, 0x00}, 99ms}});
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Answered);
}

TEST_F(DiagUdsChannel, PendingGivesTimeAgainAndAgain) {
    std::vector<FakeAnswer> answers;
    for (int i = 1; i <= 4; ++i)
        answers.push_back({{0x7F, 0x31, 0x78}, i * 4999ms - 4980ms});
    answers.push_back({{0x71, 0x01, 0x02, 0x03}, 4 * 4999ms});
    answer(answers);
    const auto outcome = execute({0x31, 0x01, 0x02, 0x03});
    EXPECT_EQ(outcome.end, End::Answered);
    EXPECT_EQ(outcome.pending, 4u);
    ASSERT_EQ(outcome.responses.size(), 1u);
}

TEST_F(DiagUdsChannel, PendingThatIsNotKeptIsNeverSent) {
    answer({{{0x7F, 0x31, 0x78}, 10ms}});
    const auto outcome = execute({0x31, 0x01, 0x02, 0x03});
    EXPECT_EQ(outcome.end, End::NeverSent);
    EXPECT_EQ(outcome.waited, 5010ms);
    EXPECT_EQ(outcome.pending, 1u);
}

TEST_F(DiagUdsChannel, PendingHasACap) {
    std::vector<FakeAnswer> answers;
    for (int i = 0; i < 20; ++i)
        answers.push_back({{0x7F, 0x31, 0x78}, i * 2s});
    answer(answers);
    const auto outcome = execute({0x31, 0x01, 0x02, 0x03});
    EXPECT_EQ(outcome.end, End::NeverSent);
    EXPECT_EQ(outcome.waited, 25s);
    EXPECT_EQ(outcome.pending, 13u);
}

TEST_F(DiagUdsChannel, PendingWithoutEndAtOnceIsCappedToo) {
    // Each answer is there at once, but as the time goes on it comes to an end.
    std::vector<FakeAnswer> answers;
    for (int i = 0; i < 1000; ++i)
        answers.push_back({{0x7F, 0x31, 0x78}, i * 100ms});
    answer(answers);
    EXPECT_EQ(execute({0x31, 0x01, 0x02, 0x03}).end, End::NeverSent);
}

TEST_F(DiagUdsChannel, ForeignAnswersDontKeepItAlive) {
    std::vector<FakeAnswer> answers;
    for (int i = 0; i < 1000; ++i)
        answers.push_back({{0x62, 0x00, 0x00}, i * 1ms});
    answer(answers);
    const auto outcome = execute({0x3E, 0x00});
    EXPECT_EQ(outcome.end, End::Silent);
    EXPECT_LE(outcome.waited, 60ms);
}

TEST_F(DiagUdsChannel, NegativeResponseOfAnotherServiceIsForeign) {
    answer({{{0x7F, 0x22, 0x31}}, {{0x7E, 0x00}}});
    EXPECT_EQ(execute({0x3E, 0x00}).responses.at(0).bytes, (Pdu{0x7E, 0x00}));
}

TEST_F(DiagUdsChannel, SilenceIsSuccessOfASuppressedResponse) {
    EXPECT_EQ(execute({0x3E, 0x80}).end, End::Suppressed);
    // The highest bit of what is no subfunction suppresses nothing.
    EXPECT_EQ(execute({0x22, 0x80, 0x00}).end, End::Silent);
}

TEST_F(DiagUdsChannel, NegativeResponseToASuppressedOneCounts) {
    answer({{{0x7F, 0x10, 0x22}, 49ms}});
    const auto outcome = execute({0x10, 0x83});
    EXPECT_EQ(outcome.end, End::Answered);
    EXPECT_EQ(outcome.responses.at(0).bytes[2], 0x22);
}

TEST_F(DiagUdsChannel, SuppressedResponseThatIsAnnouncedHasToCome) {
    answer({{{0x7F, 0x10, 0x78}, 10ms}});
    EXPECT_EQ(execute({0x10, 0x83}).end, End::NeverSent);
    answer({{{0x7F, 0x10, 0x78}, 10ms}, {{0x50, 0x03}, 100ms}});
    EXPECT_EQ(execute({0x10, 0x83}).end, End::Answered);
}

TEST_F(DiagUdsChannel, FunctionalRequestCollectsAnswers) {
    answer({{{0x62, 0x00, 0x01}, 1ms, "Engine"},
            {{0x7F, 0x22, 0x78}, 2ms, "Body"},
            {{0x62, 0x00, 0x02}, 3ms, "Gateway"},
            {{0x62, 0x00, 0x03}, 900ms, "Body"}});
    const auto outcome = execute({0x22, 0x00, 0x01}, true);
    EXPECT_EQ(outcome.end, End::Answered);
    ASSERT_EQ(outcome.responses.size(), 3u);
    EXPECT_EQ(outcome.responses[2].controlUnit, "Body");
    EXPECT_EQ(network->functional(), std::vector<bool>{true});
}

TEST_F(DiagUdsChannel, FunctionalRequestEndsWithP2) {
    answer({{{0x62, 0x00, 0x01}, 1ms, "Engine"}, {{0x62, 0x00, 0x02}, 51ms, "Body"}});
    const auto outcome = execute({0x22, 0x00, 0x01}, true);
    EXPECT_EQ(outcome.responses.size(), 1u);
    EXPECT_EQ(outcome.waited, 50ms);
    network->clock.advance(1ms);
    answer({});
    EXPECT_EQ(execute({0x22, 0x00, 0x01}, true).end, End::Silent);
}

TEST_F(DiagUdsChannel, NothingIsScheduledOnAClosedChannel) {
    channel->close();
    EXPECT_FALSE(channel->schedule(network->clock.now(), std::make_shared<Timed>()));
}

TEST_F(DiagUdsChannel, OneRequestAtATimeInTheirOrder) {
    network->hold(true);
    answer({{{0x62, 0x00, 0x00}, 10ms}});
    const auto client = std::make_shared<Client>();
    for (std::uint8_t i = 0; i < 10; ++i)
        EXPECT_FALSE(channel->submit({{0x22, 0x00, i}, false}, client));
    network->awaitHeld();
    EXPECT_EQ(network->sent().size(), 1u);
    network->hold(false);
    client->await(10);
    const auto sent = network->sent();
    ASSERT_EQ(sent.size(), 10u);
    for (std::uint8_t i = 0; i < 10; ++i)
        EXPECT_EQ(sent[i][2], i);
}

TEST_F(DiagUdsChannel, TooManyRequestsEndAtOnce) {
    network->hold(true);
    const auto client = std::make_shared<Client>();
    for (std::size_t i = 0; i <= UdsChannel::longestQueue; ++i)
        EXPECT_FALSE(channel->submit({{0x3E, 0x00}, false}, client));
    // One may have gone from the queue to the link.
    const auto last = std::make_shared<Client>();
    for (int i = 0; last->count() == 0 && i < 2; ++i)
        channel->submit({{0x3E, 0x00}, false}, last);
    EXPECT_EQ(last->await().end, End::Crowded);
    channel->close();
    EXPECT_EQ(client->await(UdsChannel::longestQueue + 1).end, End::Closed);
}

TEST_F(DiagUdsChannel, CloseEndsWhatIsOnItsWay) {
    network->hold(true);
    const auto client = std::make_shared<Client>();
    for (int i = 0; i < 3; ++i)
        channel->submit({{0x3E, 0x00}, false}, client);
    network->awaitHeld();
    channel->close();
    for (std::size_t i = 1; i <= 3; ++i)
        EXPECT_EQ(client->await(i).end, End::Closed);
    EXPECT_EQ(channel->state(), UdsChannel::State::Closed);
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Closed);
    channel->start();
    EXPECT_EQ(channel->state(), UdsChannel::State::Closed);
}

TEST_F(DiagUdsChannel, DestructionEndsWhatIsOnItsWay) {
    network->hold(true);
    const auto client = std::make_shared<Client>();
    channel->submit({{0x3E, 0x00}, false}, client);
    channel->submit({{0x3E, 0x00}, false}, client);
    network->awaitHeld();
    channel.reset();
    EXPECT_EQ(client->await(2).end, End::Closed);
}

TEST_F(DiagUdsChannel, ClientMayDropTheChannelThatCallsIt) {
    struct Dropper final : UdsClient {
        explicit Dropper(std::shared_ptr<UdsChannel>&& kept) : channel(std::move(kept)) {}
        void completed(UdsOutcome&&) override {
            channel.reset();
            const std::lock_guard guard(lock);
            done = true;
            changed.notify_all();
        }
        std::shared_ptr<UdsChannel> channel;
        std::mutex lock;
        std::condition_variable changed;
        bool done = false;
    };
    answer({{{0x7E, 0x00}, 10ms}});
    UdsChannel& used = *channel;
    const auto client = std::make_shared<Dropper>(std::move(channel));
    used.submit({{0x3E, 0x00}, false}, client);
    std::unique_lock lock(client->lock);
    client->changed.wait(lock, [&] { return client->done; });
}

TEST_F(DiagUdsChannel, ClientMaySubmitAgain) {
    struct Chain final : UdsClient, std::enable_shared_from_this<Chain> {
        explicit Chain(UdsChannel& used) : channel(used) {}
        void completed(UdsOutcome&&) override {
            if (--left > 0)
                channel.submit({{0x3E, 0x00}, false}, shared_from_this());
        }
        UdsChannel& channel;
        int left = 50;
    };
    answer({{{0x7E, 0x00}}});
    const auto chain = std::make_shared<Chain>(*channel);
    channel->submit({{0x3E, 0x00}, false}, chain);
    EXPECT_EQ(chain->left, 0);
    EXPECT_EQ(network->sent().size(), 50u);
}

TEST_F(DiagUdsChannel, StopsAndStartsAgain) {
    answer({{{0x7E, 0x00}}});
    channel->stop();
    EXPECT_EQ(channel->state(), UdsChannel::State::Stopped);
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Stopped);
    channel->start();
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Answered);
}

TEST_F(DiagUdsChannel, StopEndsWhatIsOnItsWay) {
    network->hold(true);
    const auto client = std::make_shared<Client>();
    for (int i = 0; i < 3; ++i)
        channel->submit({{0x3E, 0x00}, false}, client);
    network->awaitHeld();
    channel->stop();
    for (std::size_t i = 1; i <= 3; ++i)
        EXPECT_EQ(client->await(i).end, End::Stopped);
    EXPECT_EQ(channel->state(), UdsChannel::State::Stopped);
    network->hold(false);
    channel->start();
    answer({{{0x7E, 0x00}, 10ms}});
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Answered);
}

TEST_F(DiagUdsChannel, StopAndStartAtAnyMoment) {
    answer({{{0x7E, 0x00}, 1ms}});
    for (int round = 0; round < 300; ++round) {
        const auto client = std::make_shared<Client>();
        channel->submit({{0x3E, 0x00}, false}, client);
        channel->stop();
        channel->start();
        channel->submit({{0x3E, 0x00}, false}, client);
        const End first = client->await(1).end;
        EXPECT_TRUE(first == End::Stopped || first == End::Answered);
        EXPECT_EQ(client->await(2).end, End::Answered);
        EXPECT_EQ(channel->state(), UdsChannel::State::Open);
    }
}

TEST_F(DiagUdsChannel, BrokenLinkEndsAllAndIsOpenedAgain) {
    network->handle([](const Pdu& request, bool) -> std::vector<FakeAnswer> {
        if (request[1] == 0x01) throw TransportError("the cable is off");
        return {{{0x7E, 0x00}}};
    });
    const auto outcome = execute({0x3E, 0x01});
    EXPECT_EQ(outcome.end, End::LinkBroken);
    EXPECT_EQ(outcome.complaint, "the cable is off");
    EXPECT_EQ(channel->state(), UdsChannel::State::Broken);
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::LinkBroken);
    channel->start();
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Answered);
}

TEST_F(DiagUdsChannel, CallsWhatIsDueOnceMoreAtItsEnd) {
    const auto timed = std::make_shared<Timed>();
    channel->schedule(network->clock.now() + 1h, timed);
    channel->close();
    timed->await(1);
}

TEST_F(DiagUdsChannel, ManyThreadsShareIt) {
    network->handle([](const Pdu& request, bool) -> std::vector<FakeAnswer> {
        // Some of the answers take their time.
        return {{{0x62, request[1], request[2]}, request[2] % 16 == 0 ? Clock::Duration(1ms) : Clock::Duration(0)}};
    });
    constexpr int threads = 4;
    constexpr int requests = 500;
    std::atomic<int> right{0};
    std::vector<std::jthread> running;
    for (int t = 0; t < threads; ++t)
        running.emplace_back([&, t] {
            for (int i = 0; i < requests; ++i) {
                const auto client = std::make_shared<Client>();
                channel->submit({{0x22, static_cast<std::uint8_t>(t), static_cast<std::uint8_t>(i)}, false}, client);
                const auto outcome = client->await();
                const Pdu expected{0x62, static_cast<std::uint8_t>(t), static_cast<std::uint8_t>(i)};
                right += outcome.end == End::Answered && outcome.responses.at(0).bytes == expected;
            }
        });
    running.clear();
    EXPECT_EQ(right, threads * requests);
    EXPECT_EQ(network->sent().size(), static_cast<std::size_t>(threads * requests));
}

TEST_F(DiagUdsChannel, ClosesUnderLoad) {
    network->handle([](const Pdu& request, bool) -> std::vector<FakeAnswer> {
        return {{{0x62, request[1], request[2]}, request[2] % 3 == 0 ? Clock::Duration(1ms) : Clock::Duration(0)}};
    });
    for (int round = 0; round < 50; ++round) {
        auto short_lived = std::make_shared<UdsChannel>(std::make_shared<FakeTransport>(network), "Engine", nullptr);
        short_lived->start();
        std::atomic<int> ended{0};
        {
            std::vector<std::jthread> running;
            for (int t = 0; t < 3; ++t)
                running.emplace_back([&] {
                    for (int i = 0; i < 40; ++i) {
                        const auto client = std::make_shared<Client>();
                        short_lived->submit({{0x22, 0x00, static_cast<std::uint8_t>(i)}, false}, client);
                        client->await();
                        ++ended;
                    }
                });
            running.emplace_back([&] { short_lived->close(); });
        }
        EXPECT_EQ(ended, 120);
    }
}

}  // namespace
}  // namespace velkotx::host
