// Security access of the simulated vehicle.
#include "VehicleBench.h"

#include <vehicle/SeedKey.h>

#include <gtest/gtest.h>

namespace velkotx::host::test {
namespace {

TEST(VehicleSecurity, UnlocksWithTheKey) {
    VehicleBench bench;
    bench.unlock();
    bench.expectTalk({{"27 01", "67 01 00 00"}, {"22 00 04", "62 00 04 04"}});
}

TEST(VehicleSecurity, RefusesInTheStandardsOrder) {
    VehicleBench bench;
    bench.expectTalk({{"10 03", "50 03 00 19 00 C8"},
                      {"27", "7F 27 13"},
                      {"27 07", "7F 27 12"},
                      {"27 00", "7F 27 12"},
                      {"27 05", "7F 27 7E"},
                      {"27 02 1E D2", "7F 27 24"},
                      {"27 01", "67 01 11 22"},
                      {"27 04 00 00 00", "7F 27 24"},
                      {"27 02 1E", "7F 27 13"},
                      {"27 02 1E D2", "67 02"},
                      {"27 02 1E D2", "7F 27 24"}});
}

TEST(VehicleSecurity, WrongKeysEndInADelay) {
    VehicleBench bench;
    bench.expectTalk({{"10 03", "50 03 00 19 00 C8"},
                      {"27 01", "67 01 11 22"},
                      {"27 02 00 00", "7F 27 35"},
                      {"27 02 1E D2", "7F 27 24"},
                      {"27 01", "67 01 11 22"},
                      {"27 02 00 00", "7F 27 36"},
                      {"27 01", "7F 27 37"}});
    bench.pass(999);
    bench.expectTalk({{"27 01", "7F 27 37"}});
    bench.pass(1);
    bench.expectTalk({{"27 01", "67 01 11 22"}, {"27 02 00 00", "7F 27 36"}, {"27 01", "7F 27 37"}});
    bench.pass(1000);
    bench.expectTalk({{"27 01", "67 01 11 22"}, {"27 02 1E D2", "67 02"}});
}

TEST(VehicleSecurity, WaitsAfterPowerOn) {
    VehicleBench bench;
    bench.expectTalk({{"10 03", "50 03 00 19 00 C8"}, {"27 03", "7F 27 37"}});
    bench.pass(500);
    bench.link->send(bytes("27 03"), false);
    Pdu seed = bench.link->receive(bench.clock->now())->bytes;
    ASSERT_EQ(seed.size(), 5U);
    const Pdu key{0x27, 0x04, static_cast<std::uint8_t>(~seed[2]), static_cast<std::uint8_t>(~seed[3]),
                  static_cast<std::uint8_t>(~seed[4])};
    bench.link->send(key, false);
    EXPECT_EQ(bench.answers(), "67 04");
    bench.expectTalk({{"11 01", "51 01"}});
    bench.pass(300);
    bench.expectTalk({{"10 03", "50 03 00 19 00 C8"}, {"27 03", "7F 27 37"}});
    bench.pass(500);
    bench.link->send(bytes("27 03"), false);
    EXPECT_NE(bench.link->receive(bench.clock->now())->bytes, seed) << "another seed each time";
}

TEST(VehicleSecurity, OneLevelAtATime) {
    VehicleBench bench;
    bench.unlock();
    bench.expectTalk({{"27 05", "67 05 00 FF"}, {"27 06 01 00", "67 06"}, {"22 00 04", "7F 22 33"}});
}

TEST(SeedKeys, Algorithms) {
    const Bytes seed{0x12, 0x34, 0x56, 0xFF};
    EXPECT_EQ(findSeedKey("xor")(seed, {0x0F, 0xF0}), (Bytes{0x1D, 0xC4, 0x59, 0x0F}));
    EXPECT_EQ(findSeedKey("add")(seed, {0x01, 0x02}), (Bytes{0x12, 0x34, 0x58, 0x01}));
    EXPECT_EQ(findSeedKey("complement")(seed, {}), (Bytes{0xED, 0xCB, 0xA9, 0x00}));
    EXPECT_EQ(findSeedKey("rot13"), nullptr);
}

// The same, written with numbers of 32 bits.
TEST(SeedKeys, ShiftXor) {
    std::uint32_t value = 0x8A6B4C2D;
    const std::uint32_t constant = 0x5EED1234;
    const Bytes seed{0x8A, 0x6B, 0x4C, 0x2D};
    const Bytes key = findSeedKey("shift-xor")(seed, {0x5E, 0xED, 0x12, 0x34});
    for (int round = 0; round < 35; ++round)
        value = (value & 0x80000000U) != 0 ? (value << 1U) ^ constant : value << 1U;
    ASSERT_EQ(key.size(), 4U);
    EXPECT_EQ(static_cast<std::uint32_t>(key[0]) << 24U | static_cast<std::uint32_t>(key[1]) << 16U |
                  static_cast<std::uint32_t>(key[2]) << 8U | key[3],
              value);
}

}  // namespace
}  // namespace velkotx::host::test
