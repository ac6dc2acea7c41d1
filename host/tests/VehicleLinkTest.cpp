// Links to the simulated vehicle: waiting, closing, several at once, and requests of no sense.
#include "VehicleBench.h"

#include <vehicle/SystemClock.h>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <random>
#include <thread>

namespace velkotx::host::test {
namespace {

constexpr Clock::Time forever = Clock::Time::max();

TEST(VehicleLink, UnknownControlUnit) {
    VehicleBench bench;
    EXPECT_THROW(bench.transport->open("Three"), UnknownControlUnit);
}

TEST(VehicleLink, WaitsForTheAnswersTime) {
    VehicleBench bench(replaced(benchText(), "\"resetTime\"", "\"responseTime\": 60, \"resetTime\""));
    bench.link->send(bytes("3E 00"), false);
    std::optional<ReceivedPdu> answer;
    std::thread reader([&] { answer = bench.link->receive(forever); });
    bench.clock->awaitWaiting(1);
    EXPECT_TRUE(bench.clock->advanceToNextWait());
    reader.join();
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->time, std::chrono::milliseconds(60));
    EXPECT_EQ(bench.clock->now(), std::chrono::milliseconds(60));
    EXPECT_FALSE(bench.clock->advanceToNextWait());
}

TEST(VehicleLink, GivesUpAtTheTime) {
    VehicleBench bench(replaced(benchText(), "\"resetTime\"", "\"responseTime\": 60, \"resetTime\""));
    bench.link->send(bytes("3E 00"), false);
    std::optional<ReceivedPdu> answer = ReceivedPdu{};
    std::thread reader([&] { answer = bench.link->receive(std::chrono::milliseconds(59)); });
    bench.clock->awaitWaiting(1);
    bench.pass(59);
    reader.join();
    EXPECT_FALSE(answer);
    bench.pass(1);
    EXPECT_EQ(bench.answers(), "7E 00");
}

TEST(VehicleLink, ClosingEndsAWait) {
    VehicleBench bench;
    std::optional<ReceivedPdu> answer = ReceivedPdu{};
    std::thread reader([&] { answer = bench.link->receive(forever); });
    bench.clock->awaitWaiting(1);
    bench.link->close();
    reader.join();
    EXPECT_FALSE(answer);
    EXPECT_FALSE(bench.link->receive(forever));
    EXPECT_THROW(bench.link->send(bytes("3E 00"), false), TransportError);
}

TEST(VehicleLink, OutlivesItsTransport) {
    VehicleBench bench;
    bench.transport.reset();
    bench.expectTalk({{"3E 00", "7E 00"}, {"", ""}});
}

TEST(VehicleLink, AnswersGoToWhoAsked) {
    VehicleBench bench;
    const auto other = bench.transport->open("One");
    other->send(bytes("22 00 01"), false);
    bench.expectTalk({{"3E 00", "7E 00"}});
    EXPECT_EQ(digits(other->receive(bench.clock->now())->bytes), "62 00 01 01 02");
    other->send(bytes("10 03"), false);
    bench.expectTalk({{"22 00 05", "62 00 05 05"}});  // the session is the control unit's, not the link's
}

// The counter gives each number once: no answer is lost, doubled or given to two.
TEST(VehicleLink, SeveralClientsAtOnce) {
    constexpr int clients = 4, requests = 5000;
    const std::string text = replaced(benchText(), "\"counter\": 254, \"length\": 1", "\"counter\": 0, \"length\": 4");
    const auto vehicle = std::make_shared<VehicleDescription>(readVehicleText(text, ".").description);
    SimulatedTransport transport(vehicle, std::make_shared<SystemClock>());
    std::vector<std::atomic<int>> seen(clients * requests);
    std::vector<std::thread> threads;
    for (int client = 0; client < clients; ++client)
        threads.emplace_back([&] {
            const auto link = transport.open("One");
            for (int request = 0; request < requests; ++request) {
                link->send(bytes("22 00 02"), false);
                const auto answer = link->receive(forever);
                ASSERT_EQ(answer->bytes.size(), 7U);
                const std::size_t number = static_cast<std::size_t>(answer->bytes[3]) << 24U |
                                           static_cast<std::size_t>(answer->bytes[4]) << 16U |
                                           static_cast<std::size_t>(answer->bytes[5]) << 8U | answer->bytes[6];
                ASSERT_LT(number, seen.size());
                ++seen[number];
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& times : seen)
        ASSERT_EQ(times, 1);
}

// A request of sense with some bytes changed, added or cut off.
Pdu anyRequest(std::mt19937& random) {
    constexpr std::array sense{"10 03",          "10 02",          "11 01",          "14 01 02 03", "19 02 FF", "19 04 01 02 03 FF",
                               "19 06 01 02 03 10", "22 F1 90 00 01", "23 12 20 00 04", "27 01",       "27 02 1E D2",
                               "28 00 01",       "2E 00 01 AA BB", "2F 00 01 03 07 08", "31 01 FF 00", "31 01 03 01",
                               "31 03 03 01",    "34 00 12 10 00 0A", "35 00 12 10 00 0A", "36 01 01 02", "37",
                               "3D 12 20 01 02 AA BB", "3E 00",    "85 02",          "BA"};
    Pdu request = bytes(sense[random() % sense.size()]);
    for (auto changes = random() % 3; changes > 0; --changes)
        request[random() % request.size()] = static_cast<std::uint8_t>(random());
    if (random() % 4 == 0)
        request.resize(1 + random() % 24, static_cast<std::uint8_t>(random()));
    return request;
}

// Whatever is sent, every answer is a positive one to that request or a negative one about it.
TEST(VehicleLink, TakesAnyPdu) {
    VehicleBench bench;
    std::mt19937 random(20240117);
    int positive = 0, negative = 0;
    for (int round = 0; round < 10000; ++round) {
        const Pdu request = anyRequest(random);
        bench.link->send(request, random() % 4 == 0);
        bench.pass(200);  // the longest work of a service
        while (const auto answer = bench.link->receive(bench.clock->now())) {
            ASSERT_FALSE(answer->bytes.empty());
            const bool refused = answer->bytes[0] == 0x7F;
            ASSERT_EQ(refused ? answer->bytes[1] : answer->bytes[0] - 0x40, request[0]) << digits(request);
            ++(refused ? negative : positive);
        }
    }
    EXPECT_GT(positive, 1000);
    EXPECT_GT(negative, 1000);
}

}  // namespace
}  // namespace velkotx::host::test
