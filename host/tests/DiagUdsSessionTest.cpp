// Sessions as the channel sees them: what keeps them alive, and the times that hold in them.
#include "DiagUdsBench.h"

namespace velkotx::host {
namespace {

using namespace testing;

class DiagUdsSession : public UdsBench {};

TEST_F(DiagUdsSession, KeepsASessionAlive) {
    answer({{{0x50, 0x03, 0x00, 0x32, 0x01, 0xF4}}});
    execute({0x10, 0x03});
    answer({});
    pass(1999ms);
    EXPECT_EQ(network->sent().size(), 1u);
    pass(1ms);
    ASSERT_EQ(network->sent().size(), 2u);
    EXPECT_EQ(network->sent()[1], (Pdu{0x3E, 0x80}));
    pass(2s);
    EXPECT_EQ(network->sent().size(), 3u);
}

// All that were sent there have to stay.
TEST_F(DiagUdsSession, KeepsAFunctionalSessionAliveFunctionally) {
    answer({{{0x50, 0x03, 0x00, 0x32, 0x01, 0xF4}, 0ms, "Engine"}, {{0x50, 0x03, 0x00, 0x32, 0x01, 0xF4}, 0ms, "Body"}});
    execute({0x10, 0x03}, true);
    answer({});
    pass(2s);
    EXPECT_EQ(network->sent().back(), (Pdu{0x3E, 0x80}));
    EXPECT_TRUE(network->functional().back());
}

// Of the PDUs from the place on: how often all were told that somebody is there.
std::size_t toldAll(const FakeNetwork& network, std::size_t from = 0) {
    const auto sent = network.sent();
    const auto functional = network.functional();
    std::size_t count = 0;
    for (std::size_t at = from; at < sent.size(); ++at)
        count += sent[at] == Pdu{0x3E, 0x80} && functional[at];
    return count;
}

// What goes to one of them keeps only that one in its session.
TEST_F(DiagUdsSession, KeepsAFunctionalSessionAliveBesideTrafficWithOneUnit) {
    answer({{{0x50, 0x03}, 0ms, "Engine"}, {{0x50, 0x03}, 0ms, "Body"}});
    execute({0x10, 0x03}, true);
    answer({{{0x62, 0x00, 0x01}}});
    for (int second = 0; second < 6; ++second) {
        pass(1s);
        execute({0x22, 0x00, 0x01});
    }
    EXPECT_EQ(toldAll(*network), 3u);
}

// The thread that submits is quicker than the channel's own.
TEST_F(DiagUdsSession, KeepsAFunctionalSessionAliveBeforeARequestToOneUnit) {
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03}, true);
    network->handle([this](const Pdu& request, bool) -> std::vector<FakeAnswer> {
        if (request[0] != 0x22)
            return {};
        // The channel's thread can't have the link meanwhile.
        if (request == Pdu{0x22, 0x00, 0x00})
            network->clock.advance(2s);
        return {{{0x62, request[1], request[2]}}};
    });
    execute({0x22, 0x00, 0x00});
    execute({0x22, 0x00, 0x01});
    EXPECT_EQ(toldAll(*network), 1u);
}

TEST_F(DiagUdsSession, FunctionalRequestsKeepAFunctionalSessionAliveThemselves) {
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03}, true);
    pass(1500ms);
    answer({{{0x62, 0x00, 0x01}}});
    execute({0x22, 0x00, 0x01}, true);
    pass(1500ms);
    EXPECT_EQ(toldAll(*network), 0u);
    pass(500ms);
    EXPECT_EQ(toldAll(*network), 1u);
}

TEST_F(DiagUdsSession, KeepsAFunctionalSessionAliveWhileOneUnitTakesLong) {
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03}, true);
    network->handle([](const Pdu& request, bool) -> std::vector<FakeAnswer> {
        if (request[0] != 0x31)
            return {};
        return {{{0x7F, 0x31, 0x78}, 10ms}, {{0x7F, 0x31, 0x78}, 4900ms}, {{0x71, 0x01, 0x02, 0x03}, 9s}};
    });
    const auto outcome = execute({0x31, 0x01, 0x02, 0x03});
    EXPECT_EQ(outcome.end, End::Answered);
    EXPECT_EQ(outcome.pending, 2u);
    EXPECT_EQ(outcome.waited, 9s);
    EXPECT_EQ(toldAll(*network), 4u);
}

TEST_F(DiagUdsSession, SilenceBesideAFunctionalSessionTakesNoLonger) {
    UdsTiming timing;
    timing.testerPresent = 20ms;
    channel->setTiming(timing);
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03}, true);
    answer({});
    const auto outcome = execute({0x22, 0x00, 0x01});
    EXPECT_EQ(outcome.end, End::Silent);
    EXPECT_EQ(outcome.waited, 50ms);
}

TEST_F(DiagUdsSession, CloseEndsAWaitWithAFunctionalSession) {
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03}, true);
    answer({});
    network->hold(true);
    const auto client = std::make_shared<Client>();
    channel->submit({{0x22, 0x00, 0x01}, false}, client);
    network->awaitHeld();
    channel->close();
    EXPECT_EQ(client->await().end, End::Closed);
}

// Those that are there already have to stay as well.
TEST_F(DiagUdsSession, KeepsAliveWhileAFunctionalSessionIsStillOpened) {
    network->handle([](const Pdu& request, bool) -> std::vector<FakeAnswer> {
        if (request[0] != 0x10)
            return {};
        return {{{0x50, 0x03}, 1ms, "Engine"}, {{0x7F, 0x10, 0x78}, 2ms, "Body"}, {{0x50, 0x03}, 4500ms, "Body"}};
    });
    EXPECT_EQ(execute({0x10, 0x03}, true).responses.size(), 2u);
    EXPECT_EQ(toldAll(*network), 2u);
}

TEST_F(DiagUdsSession, OneUnitsOwnSessionEndsNoFunctionalOne) {
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03}, true);
    for (const Pdu& own : {Pdu{0x10, 0x03}, Pdu{0x10, 0x01}, Pdu{0x11, 0x01}}) {
        answer({{{static_cast<std::uint8_t>(own[0] + 0x40), own[1]}}});
        execute(own);
        const std::size_t before = network->sent().size();
        pass(2s);
        EXPECT_EQ(toldAll(*network, before), 1u);
    }
}

TEST_F(DiagUdsSession, FunctionalRequestsEndFunctionalSessions) {
    for (const Pdu& end : {Pdu{0x10, 0x01}, Pdu{0x11, 0x01}}) {
        answer({{{0x50, 0x03}}});
        execute({0x10, 0x03}, true);
        answer({{{static_cast<std::uint8_t>(end[0] + 0x40), end[1]}}});
        execute(end, true);
        const std::size_t before = network->sent().size();
        pass(10s);
        EXPECT_EQ(network->sent().size(), before);
    }
}

TEST_F(DiagUdsSession, TrafficKeepsASessionAliveItself) {
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03});
    pass(1500ms);
    answer({{{0x62, 0x00, 0x01}}});
    execute({0x22, 0x00, 0x01});
    pass(1500ms);
    EXPECT_EQ(network->sent().size(), 2u);
}

TEST_F(DiagUdsSession, SendsNoTesterPresentOutsideOfSessions) {
    pass(10s);
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03});
    answer({{{0x50, 0x01}}});
    execute({0x10, 0x01});
    pass(10s);
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03});
    answer({{{0x51, 0x01}}});
    execute({0x11, 0x01});
    pass(10s);
    answer({{{0x7F, 0x10, 0x22}}});
    execute({0x10, 0x03});
    pass(10s);
    EXPECT_EQ(network->sent().size(), 5u);
}

TEST_F(DiagUdsSession, TesterPresentCanBeTurnedOff) {
    UdsTiming timing;
    timing.testerPresent = 0ms;
    channel->setTiming(timing);
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03});
    pass(10s);
    EXPECT_EQ(network->sent().size(), 1u);
    timing.testerPresent = 1s;
    channel->setTiming(timing);
    pass(1s);
    EXPECT_GE(network->sent().size(), 2u);
}

// Nothing but the session asks for the thread here.
TEST_F(DiagUdsSession, ASessionBringsTheThreadThatKeepsItAlive) {
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03});
    network->clock.awaitWaiting(1);
    network->clock.advance(2s);
    network->awaitSent(2);
    EXPECT_EQ(network->sent().back(), (Pdu{0x3E, 0x80}));
}

TEST_F(DiagUdsSession, TesterPresentThatIsTurnedOnBringsTheThread) {
    UdsTiming timing;
    timing.testerPresent = 0ms;
    channel->setTiming(timing);
    answer({{{0x50, 0x03}}});
    execute({0x10, 0x03});
    EXPECT_FALSE(network->clock.advanceToNextWait());
    timing.testerPresent = 1s;
    channel->setTiming(timing);
    network->clock.awaitWaiting(1);
    network->clock.advance(1s);
    network->awaitSent(2);
}

TEST_F(DiagUdsSession, SuppressedSessionChangeCounts) {
    EXPECT_EQ(execute({0x10, 0x83}).end, End::Suppressed);
    pass(2s);
    EXPECT_EQ(network->sent().back(), (Pdu{0x3E, 0x80}));
}

TEST_F(DiagUdsSession, AnnouncedTimesLengthenItsOwn) {
    // P2 200 ms, P2* 60 s.
    answer({{{0x50, 0x03, 0x00, 0xC8, 0x17, 0x70}}});
    execute({0x10, 0x03});
    answer({{{0x7E, 0x00}, 199ms}});
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Answered);
    answer({{{0x7F, 0x3E, 0x78}, 10ms}, {{0x7E, 0x00}, 20s}});
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Answered);
    answer({{{0x50, 0x01, 0x00, 0x01, 0x00, 0x01}}});
    execute({0x10, 0x01});
    answer({{{0x7E, 0x00}, 49ms}});
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Answered);
}

// Whoever is the quickest to answer may be the one that is to answer the quickest.
TEST_F(DiagUdsSession, LongestTimesOfAFunctionalSessionHold) {
    // P2 and P2*: 50 ms and 5 s, 300 ms and 60 s, 100 ms and 1 s.
    answer({{{0x50, 0x03, 0x00, 0x32, 0x01, 0xF4}, 1ms, "Engine"},
            {{0x50, 0x03, 0x01, 0x2C, 0x17, 0x70}, 2ms, "Body"},
            {{0x7F, 0x10, 0x22}, 3ms, "Brake"},
            {{0x50, 0x03, 0x00, 0x64, 0x00, 0x64}, 4ms, "Gateway"}});
    execute({0x10, 0x03}, true);
    answer({{{0x71, 0x01, 0x00, 0x01}, 1ms, "Engine"}, {{0x71, 0x01, 0x00, 0x01}, 299ms, "Body"}});
    EXPECT_EQ(execute({0x31, 0x01, 0x00, 0x01}, true).responses.size(), 2u);
    answer({{{0x71, 0x01, 0x00, 0x01}, 299ms}});
    EXPECT_EQ(execute({0x31, 0x01, 0x00, 0x01}).end, End::Answered);
    answer({{{0x7F, 0x31, 0x78}, 10ms}, {{0x71, 0x01, 0x00, 0x01}, 20s}});
    EXPECT_EQ(execute({0x31, 0x01, 0x00, 0x01}).end, End::Answered);
}

TEST_F(DiagUdsSession, OwnSessionsTimesHoldBesideAFunctionalSession) {
    answer({{{0x50, 0x02, 0x00, 0xC8, 0x17, 0x70}}});
    execute({0x10, 0x02});
    answer({{{0x50, 0x03, 0x00, 0x32, 0x01, 0xF4}, 1ms, "Body"}});
    execute({0x10, 0x03}, true);
    answer({{{0x7E, 0x00}, 199ms}});
    EXPECT_EQ(execute({0x3E, 0x00}).end, End::Answered);
}

}  // namespace
}  // namespace velkotx::host
