// Faults of the simulated vehicle, and when answers come.
#include "VehicleBench.h"

#include <gtest/gtest.h>

namespace velkotx::host::test {
namespace {

std::string withFaults(const std::string& faults) {
    return replaced(benchText(), "\"transfer\"", "\"faults\": [" + faults + "], \"transfer\"");
}

TEST(VehicleFaults, Silence) {
    VehicleBench bench(withFaults(R"({ "request": "22 00", "from": 2, "count": 2, "silence": true })"));
    bench.expectTalk({{"22 00 01", "62 00 01 01 02"},
                      {"22 00 01", ""},
                      {"22 F1 90", "62 F1 90 56 49 4E 00"},
                      {"22 00 02", ""},
                      {"22 00 02", "62 00 02 FE"}});
}

TEST(VehicleFaults, NegativeCodeAlways) {
    VehicleBench bench(withFaults(R"({ "request": "3E", "negative": "0x10" })"));
    bench.expectTalk({{"3E 00", "7F 3E 10"}, {"3E 80", "7F 3E 10"}, {"3E 00", "7F 3E 10"}, {"10 01", "50 01 00 32 01 F4"}});
}

TEST(VehicleFaults, Delay) {
    VehicleBench bench(withFaults(R"({ "request": "3E", "count": 1, "delay": 80.5 })"));
    bench.expectTalk({{"3E 00", ""}, {"3E 00", "7F 3E 21"}, {"3E 80", ""}, {"22 00 01", "7F 22 21"}});
    bench.clock->advance(Clock::Duration(80499));
    EXPECT_EQ(bench.answers(), "");
    bench.clock->advance(Clock::Duration(1));
    EXPECT_EQ(bench.answers(), "7E 00");
    bench.expectTalk({{"3E 00", "7E 00"}});
}

TEST(VehicleFaults, PendingAnyNumberOfTimes) {
    VehicleBench bench(withFaults(R"({ "request": "22 00 01", "pending": { "times": 3, "interval": 40 } })"));
    bench.link->send(bytes("22 00 01"), false);
    EXPECT_EQ(bench.answersUntil(200), "0: 7F 22 78 | 40: 7F 22 78 | 80: 7F 22 78 | 120: 62 00 01 01 02");
}

TEST(VehicleFaults, AfterPendingTheAnswerIsNotSuppressed) {
    VehicleBench bench(withFaults(R"({ "pending": { "times": 1, "interval": 10 } })"));
    bench.link->send(bytes("3E 80"), false);
    EXPECT_EQ(bench.answersUntil(20), "0: 7F 3E 78 | 10: 7E 00");
    bench.link->send(bytes("22 00 99"), true);
    EXPECT_EQ(bench.answersUntil(20), "20: 7F 22 78 | 30: 7F 22 31");
}

TEST(VehicleFaults, Reset) {
    VehicleBench bench(withFaults(R"({ "request": "85 02", "reset": true })"));
    bench.unlock();
    bench.expectTalk({{"85 02", ""}, {"3E 00", ""}});
    bench.pass(300);
    bench.expectTalk({{"22 00 05", "7F 22 31"}});
}

TEST(VehicleFaults, WrongAndShortAnswers) {
    VehicleBench bench(withFaults(R"({ "request": "22 00 01", "count": 1, "answer": "62 00 02 FF" },
                                     { "request": "22 F1", "count": 1, "length": 2 })"));
    bench.expectTalk({{"22 00 01", "62 00 02 FF"},
                      {"22 00 01", "62 00 01 01 02"},
                      {"22 F1 90", "62 F1"},
                      {"22 F1 90", "62 F1 90 56 49 4E 00"}});
}

TEST(VehicleFaults, SeveralAtOnce) {
    VehicleBench bench(withFaults(R"({ "request": "3E", "delay": 5 }, { "delay": 7 }, { "request": "3E", "length": 1 })"));
    bench.link->send(bytes("3E 00"), false);
    EXPECT_EQ(bench.answersUntil(20), "12: 7E");
}

TEST(VehicleTiming, OfEveryAnswer) {
    VehicleBench bench(replaced(benchText(), "\"resetTime\"", "\"responseTime\": 60, \"resetTime\""));
    bench.link->send(bytes("10 03"), false);
    EXPECT_EQ(bench.answersUntil(70), "60: 50 03 00 19 00 C8");
    bench.link->send(bytes("11 01"), false);
    EXPECT_EQ(bench.answersUntil(70), "130: 51 01");
    bench.pass(289);  // 300 ms after the answer, not after the request
    bench.expectTalk({{"3E 00", ""}});
    EXPECT_EQ(bench.answersUntil(100), "");
    bench.link->send(bytes("3E 00"), false);
    EXPECT_EQ(bench.answersUntil(60), "589: 7E 00");
}

TEST(VehicleTiming, PendingInHalfOfP2Star) {
    VehicleBench bench(replaced(benchText(), "\"processing\": 130", "\"processing\": 6000"));
    bench.unlock();
    bench.link->send(bytes("31 01 FF 00"), false);
    EXPECT_EQ(bench.answersUntil(6000), "50: 7F 31 78 | 2550: 7F 31 78 | 5050: 7F 31 78 | 6000: 71 01 FF 00 00");
    bench.pass(2999);
    bench.expectTalk({{"22 00 04", "62 00 04 04"}});  // S3 counts from the end of the answer
}

TEST(VehicleTiming, WorkWithoutEndStaysBounded) {
    VehicleBench bench(replaced(replaced(benchText(), "\"processing\": 130", "\"processing\": 31536000000"),
                                "\"s3\": 3000", "\"p2\": 0, \"p2Star\": 0"));
    bench.expectTalk({{"10 03", "50 03 00 19 00 C8"},
                      {"10 02", "50 02 00 00 00 00"},
                      {"27 01", "67 01 11 22"},
                      {"27 02 1E D2", "67 02"},
                      {"31 01 FF 00", "7F 31 78"}});
}

TEST(VehicleFunctional, EverybodyAnswers) {
    VehicleBench bench;
    bench.expectTalkToGroup({{"22 F1 90", "62 F1 90 56 49 4E 00 | 62 F1 90 54 57 4F"}, {"3E 80", ""}});
    bench.link = bench.transport->open("All");
    bench.expectTalk({{"22 F1 90", "62 F1 90 56 49 4E 00 | 62 F1 90 54 57 4F"}});
}

TEST(VehicleFunctional, TellsWhoAnswers) {
    VehicleBench bench;
    bench.link->send(bytes("3E 00"), true);
    EXPECT_EQ(bench.link->receive(bench.clock->now())->controlUnit, "One");
    EXPECT_EQ(bench.link->receive(bench.clock->now())->controlUnit, "Two");
}

TEST(VehicleFunctional, WhoIsNotConcernedKeepsSilent) {
    VehicleBench bench;
    bench.expectTalkToGroup({{"22 00 01", "62 00 01 01 02"},  // 0x31 from Two
                             {"BA", ""},                       // 0x11
                             {"10 05", ""},                    // 0x12
                             {"10 02", ""},                    // 0x7E from One, 0x12 from Two
                             {"85 01", ""},                    // 0x7F
                             {"22 00 99", ""},                 // 0x31
                             {"22", "7F 22 13 | 7F 22 13"},
                             {"22 00 04", "7F 22 33"},
                             {"3E 00 00", "7F 3E 13 | 7F 3E 13"}});
}

TEST(VehicleFunctional, NobodyListensWithoutAGroup) {
    VehicleBench bench(replaced(benchText(), "\"responseAddress\": 2, \"groups\": [\"All\"]", "\"responseAddress\": 2"));
    bench.expectTalkToGroup({{"3E 00", ""}});
    bench.link = bench.transport->open("All");
    bench.expectTalk({{"3E 00", "7E 00"}});
}

}  // namespace
}  // namespace velkotx::host::test
