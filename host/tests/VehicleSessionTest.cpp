// Sessions, reset, tester present, communication control and DTC setting of the simulated vehicle.
#include "VehicleBench.h"

#include <gtest/gtest.h>

namespace velkotx::host::test {
namespace {

TEST(VehicleSession, AnswersWithItsTimes) {
    VehicleBench bench;
    bench.expectTalk({{"10 01", "50 01 00 32 01 F4"}, {"10 03", "50 03 00 19 00 C8"}});
}

TEST(VehicleSession, RefusesInTheStandardsOrder) {
    VehicleBench bench;
    bench.expectTalk({{"10", "7F 10 13"},
                      {"10 04", "7F 10 12"},
                      {"10 04 00", "7F 10 12"},
                      {"10 03 00", "7F 10 13"},
                      {"10 02", "7F 10 7E"}});
}

TEST(VehicleSession, SuppressesThePositiveAnswerOnly) {
    VehicleBench bench;
    bench.expectTalk({{"10 83", ""}, {"22 00 05", "62 00 05 05"}, {"10 84", "7F 10 12"}, {"3E 80", ""}, {"3E 00", "7E 00"}});
}

TEST(VehicleSession, FallsBackWhenS3RunsOut) {
    VehicleBench bench;
    bench.expectTalk({{"10 03", "50 03 00 19 00 C8"}});
    bench.pass(4999);
    bench.expectTalk({{"22 00 05", "62 00 05 05"}});
    bench.pass(4999);
    bench.expectTalk({{"3E 80", ""}});
    bench.pass(4999);
    bench.expectTalk({{"22 00 05", "62 00 05 05"}});
    bench.pass(5000);
    bench.expectTalk({{"22 00 05", "7F 22 31"}});
}

TEST(VehicleSession, HasItsOwnS3) {
    VehicleBench bench;
    bench.unlock();
    bench.pass(2999);
    bench.expectTalk({{"22 00 04", "62 00 04 04"}});
    bench.pass(3000);
    bench.expectTalk({{"22 00 04", "7F 22 33"}});
}

TEST(VehicleSession, LocksSecurityWhenItIsEntered) {
    VehicleBench bench;
    bench.unlock();
    bench.expectTalk({{"22 00 04", "62 00 04 04"}, {"10 02", "50 02 00 32 01 F4"}, {"22 00 04", "7F 22 33"}});
}

TEST(VehicleSession, ServicesOfOtherSessions) {
    VehicleBench bench;
    bench.expectTalk({{"27 01", "7F 27 7F"},
                      {"14 FF FF FF", "7F 14 7F"},
                      {"85 01", "7F 85 7F"},
                      {"28 00 01", "7F 28 7F"},
                      {"36 01", "7F 36 7F"},
                      {"3E 01", "7F 3E 12"},
                      {"3E 00 00", "7F 3E 13"},
                      {"00", "7F 00 11"},
                      {"BA 00", "7F BA 11"}});
    bench.expectTalk({{"10 03", "50 03 00 19 00 C8"}, {"28 00 01", "7F 28 33"}});
    bench.link = bench.transport->open("Two");
    bench.expectTalk({{"2E F1 90 00", "7F 2E 11"}, {"27 01", "7F 27 11"}, {"34 00", "7F 34 11"}});
}

TEST(VehicleReset, IsAwayForAWhile) {
    VehicleBench bench;
    bench.unlock();
    bench.expectTalk({{"11 01", "51 01"}, {"3E 00", ""}});
    bench.pass(299);
    bench.expectTalk({{"3E 00", ""}});
    bench.pass(1);
    bench.expectTalk({{"3E 00", "7E 00"}, {"22 00 05", "7F 22 31"}, {"22 00 04", "7F 22 33"}});
}

TEST(VehicleReset, Subfunctions) {
    VehicleBench bench;
    bench.expectTalk({{"11 00", "7F 11 12"}, {"11 02", "7F 11 12"}, {"11 03", "7F 11 7E"}, {"11 01 00", "7F 11 13"}});
    bench.expectTalk({{"10 03", "50 03 00 19 00 C8"}, {"11 83", ""}, {"3E 00", ""}});
}

TEST(VehicleCommunication, NeedsATypeOfMessages) {
    VehicleBench bench;
    bench.unlock();
    bench.expectTalk({{"28", "7F 28 13"},
                      {"28 04", "7F 28 12"},
                      {"28 03", "7F 28 13"},
                      {"28 03 00", "7F 28 31"},
                      {"28 03 01", "68 03"},
                      {"28 80 03", ""},
                      {"85 02", "C5 02"},
                      {"85 03", "7F 85 12"},
                      {"85 81", ""}});
}

}  // namespace
}  // namespace velkotx::host::test
