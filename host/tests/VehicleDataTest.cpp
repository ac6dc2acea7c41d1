// Data identifiers, trouble codes, routines and memory of the simulated vehicle.
#include "VehicleBench.h"

#include <gtest/gtest.h>

namespace velkotx::host::test {
namespace {

TEST(VehicleData, ReadsOneAndSeveral) {
    VehicleBench bench;
    bench.expectTalk({{"22 F1 90", "62 F1 90 56 49 4E 00"},
                      {"22 00 01 F1 90", "62 00 01 01 02 F1 90 56 49 4E 00"},
                      {"22 00 01 00 99", "62 00 01 01 02"},
                      {"22 00 08", "62 00 08 AA FF"}});
}

TEST(VehicleData, RefusesInTheStandardsOrder) {
    VehicleBench bench;
    bench.expectTalk({{"22", "7F 22 13"},
                      {"22 00", "7F 22 13"},
                      {"22 00 01 00", "7F 22 13"},
                      {"22 00 99", "7F 22 31"},
                      {"22 00 05", "7F 22 31"},
                      {"22 00 06", "7F 22 31"},
                      {"22 00 01 00 04", "7F 22 33"},
                      {"22 00 07 00 01", "7F 22 14"},
                      {"22 00 07 00 04", "7F 22 33"}});
}

TEST(VehicleData, CountsReads) {
    VehicleBench bench;
    bench.expectTalk({{"22 00 02", "62 00 02 FE"}, {"22 00 02", "62 00 02 FF"}, {"22 00 02", "62 00 02 00"}});
}

TEST(VehicleData, FollowsACurve) {
    VehicleBench bench;
    bench.expectTalk({{"22 00 03", "62 00 03 00 00"}});
    bench.pass(50);
    bench.expectTalk({{"22 00 03", "62 00 03 00 0A"}});
    bench.pass(125);
    bench.expectTalk({{"22 00 03", "62 00 03 FF F6"}});
    bench.pass(10000);
    bench.expectTalk({{"22 00 03", "62 00 03 FF EC"}});
}

TEST(VehicleData, IsWritten) {
    VehicleBench bench;
    bench.expectTalk({{"2E 00 01", "7F 2E 13"},
                      {"2E 00 99 00", "7F 2E 31"},
                      {"2E F1 90 00", "7F 2E 31"},
                      {"2E 00 01 AA BB", "7F 2E 31"},
                      {"10 03", "50 03 00 19 00 C8"},
                      {"2E 00 01 AA", "7F 2E 13"},
                      {"2E 00 01 AA BB", "7F 2E 33"},
                      {"27 01", "67 01 11 22"},
                      {"27 02 1E D2", "67 02"},
                      {"2E 00 01 AA BB", "6E 00 01"},
                      {"11 01", "51 01"}});
    bench.pass(300);
    bench.expectTalk({{"22 00 01", "62 00 01 AA BB"}, {"2E 00 06 07", "6E 00 06"}, {"22 00 06", "7F 22 31"}});
}

TEST(VehicleData, IsControlled) {
    VehicleBench bench;
    bench.expectTalk({{"2F 00 01 03 07 08", "7F 2F 7F"},
                      {"10 03", "50 03 00 19 00 C8"},
                      {"2F 00 01", "7F 2F 13"},
                      {"2F 00 02 00", "7F 2F 31"},
                      {"2F 00 01 04", "7F 2F 31"},
                      {"2F 00 01 03 07", "7F 2F 13"},
                      {"2F 00 01 00 07", "7F 2F 13"},
                      {"2F 00 01 03 07 08", "6F 00 01 03 07 08"},
                      {"22 00 01", "62 00 01 07 08"},
                      {"2F 00 01 02", "6F 00 01 02 07 08"},
                      {"2F 00 01 01", "6F 00 01 01 00 00"},
                      {"2F 00 01 00", "6F 00 01 00 01 02"},
                      {"2F 00 01 03 07 08", "6F 00 01 03 07 08"},
                      {"10 01", "50 01 00 32 01 F4"},
                      {"22 00 01", "62 00 01 01 02"}});
}

TEST(VehicleTroubleCodes, AreRead) {
    VehicleBench bench;
    bench.expectTalk({{"19 01 08", "59 01 7F 01 00 02"},
                      {"19 02 08", "59 02 7F 01 02 03 2F 04 05 06 08"},
                      {"19 02 01", "59 02 7F 01 02 03 2F"},
                      {"19 02 80", "59 02 7F"},
                      {"19 03", "59 03 01 02 03 01 01 02 03 02"},
                      {"19 04 01 02 03 01", "59 04 01 02 03 2F 01 01 00 01 AA BB"},
                      {"19 04 01 02 03 FF", "59 04 01 02 03 2F 01 01 00 01 AA BB 02 00"},
                      {"19 04 04 05 06 FF", "59 04 04 05 06 08"},
                      {"19 06 01 02 03 10", "59 06 01 02 03 2F 10 05"},
                      {"19 82 08", ""}});
}

TEST(VehicleTroubleCodes, RefuseInTheStandardsOrder) {
    VehicleBench bench;
    bench.expectTalk({{"19", "7F 19 13"},
                      {"19 05", "7F 19 12"},
                      {"19 0A", "7F 19 33"},
                      {"19 01", "7F 19 13"},
                      {"19 02 08 00", "7F 19 13"},
                      {"19 03 00", "7F 19 13"},
                      {"19 04 01 02 03", "7F 19 13"},
                      {"19 04 01 02 04 01", "7F 19 31"},
                      {"19 04 01 02 03 03", "7F 19 31"},
                      {"19 06 01 02 03 11", "7F 19 31"}});
    bench.unlock();
    bench.expectTalk({{"19 0A", "59 0A 7F 01 02 03 2F 04 05 06 08 07 08 09 00"}});
}

TEST(VehicleTroubleCodes, AreCleared) {
    VehicleBench bench;
    bench.expectTalk({{"10 03", "50 03 00 19 00 C8"},
                      {"14 FF FF", "7F 14 13"},
                      {"14 00 00 01", "7F 14 31"},
                      {"14 01 02 03", "54"},
                      {"19 02 FF", "59 02 7F 01 02 03 50 04 05 06 08"},
                      {"19 04 01 02 03 01", "7F 19 31"},
                      {"14 FF FF FF", "54"},
                      {"19 02 01", "59 02 7F 07 08 09 01"}});
}

TEST(VehicleRoutines, StartStopAndTellResults) {
    VehicleBench bench;
    bench.expectTalk({{"31 03 03 01", "7F 31 24"},
                      {"31 02 03 01", "7F 31 24"},
                      {"31 01 03 01", "71 01 03 01 10"},
                      {"31 01 03 01", "7F 31 22"},
                      {"31 03 03 01", "71 03 03 01 11"},
                      {"31 02 03 01", "71 02 03 01 12"},
                      {"31 02 03 01", "7F 31 24"},
                      {"31 01 03 01 AA", "71 01 03 01 10"}});
    bench.pass(99);
    bench.expectTalk({{"31 03 03 01", "71 03 03 01 11"}});
    bench.pass(1);
    bench.expectTalk({{"31 03 03 01", "71 03 03 01 13"}, {"31 02 03 01", "7F 31 24"}});
}

TEST(VehicleRoutines, RefuseInTheStandardsOrder) {
    VehicleBench bench;
    bench.expectTalk({{"31", "7F 31 13"},
                      {"31 04", "7F 31 12"},
                      {"31 01", "7F 31 13"},
                      {"31 01 09 09", "7F 31 31"},
                      {"31 01 FF 00", "7F 31 31"},
                      {"31 01 03 02", "7F 31 33"},
                      {"31 02 03 01 00", "7F 31 13"},
                      {"31 01 02 02 00", "7F 31 13"}});
    bench.unlock();
    bench.expectTalk({{"31 02 FF 00", "7F 31 12"}, {"31 03 03 03", "7F 31 12"}, {"31 01 03 02", "71 01 03 02"}});
}

TEST(VehicleMemory, IsReadByAddress) {
    VehicleBench bench;
    bench.expectTalk({{"23 12 20 00 04", "63 01 02 03 55"},
                      {"23 24 00 00 20 FE 00 02", "63 55 55"},
                      {"23 12", "7F 23 13"},
                      {"23 02 20 00", "7F 23 31"},
                      {"23 10 20 00", "7F 23 31"},
                      {"23 9A 20 00", "7F 23 31"},
                      {"23 12 20 00", "7F 23 13"},
                      {"23 12 20 00 04 00", "7F 23 13"},
                      {"23 12 20 00 00", "7F 23 31"},
                      {"23 12 20 FE 03", "7F 23 31"},
                      {"23 12 10 00 04", "7F 23 31"},
                      {"23 12 40 00 04", "7F 23 33"},
                      {"23 12 20 00 40", "7F 23 14"},
                      {"23 88 FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF", "7F 23 31"}});
}

TEST(VehicleMemory, IsWrittenByAddress) {
    VehicleBench bench;
    bench.expectTalk({{"3D 12 20 01 02 AA BB", "7D 12 20 01 02"},
                      {"23 12 20 00 04", "63 01 AA BB 55"},
                      {"3D 12 20 01 02 AA", "7F 3D 13"},
                      {"3D 12 20 FF 02 AA BB", "7F 3D 31"},
                      {"3D 12 10 00 01 AA", "7F 3D 31"},
                      {"3D 12 40 00 01 AA", "7F 3D 33"},
                      {"3D 12 20 01", "7F 3D 13"}});
}

}  // namespace
}  // namespace velkotx::host::test
