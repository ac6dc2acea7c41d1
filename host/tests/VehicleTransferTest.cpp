// Download and upload of the simulated vehicle.
#include "VehicleBench.h"

#include <vehicle/Crc32.h>

#include <gtest/gtest.h>

namespace velkotx::host::test {
namespace {

// A bench that stands unlocked in the programming session, with the flash erased.
struct Erased : VehicleBench {
    Erased() {
        unlock();
        expectTalk({{"31 01 FF 00", ""}});
        EXPECT_EQ(answersUntil(130), "50: 7F 31 78 | 130: 71 01 FF 00 00");
    }
};

TEST(VehicleTransfer, DownloadsBlockByBlock) {
    Erased bench;
    bench.expectTalk({{"34 00 12 10 00 0A", "74 10 0A"},
                      {"36 01 01 02 03 04 05 06 07 08", "76 01"},
                      {"36 02 09 0A", "76 02"},
                      {"37", "77"},
                      {"35 00 12 10 00 0A", "75 10 0A"},
                      {"36 01", "76 01 01 02 03 04 05 06 07 08"},
                      {"36 02", "76 02 09 0A"},
                      {"37", "77"}});
}

TEST(VehicleTransfer, RefusesRequestsInTheStandardsOrder) {
    Erased bench;
    bench.expectTalk({{"34 00 12 10", "7F 34 13"},
                      {"34 00 02 10 00 0A", "7F 34 31"},
                      {"34 00 12 10 00", "7F 34 13"},
                      {"34 00 12 10 00 0A 00", "7F 34 13"},
                      {"34 00 12 10 1F 02", "7F 34 31"},
                      {"34 22 12 10 00 0A", "7F 34 31"},
                      {"34 00 12 20 00 0A", "7F 34 70"},
                      {"36 01 00", "7F 36 24"},
                      {"37", "7F 37 24"},
                      {"34 00 12 10 00 0A", "74 10 0A"},
                      {"34 00 12 10 00 0A", "7F 34 22"}});
    bench.expectTalk({{"10 02", "50 02 00 32 01 F4"}, {"34 00 12 10 00 0A", "7F 34 33"}});
}

TEST(VehicleTransfer, RefusesBlocks) {
    Erased bench;
    bench.expectTalk({{"34 00 12 10 00 0A", "74 10 0A"},
                      {"36", "7F 36 13"},
                      {"36 01", "7F 36 13"},
                      {"36 00 01", "7F 36 73"},
                      {"36 01 01 02 03 04 05 06 07 08 09", "7F 36 13"},
                      {"36 01 01 02 03 04 05 06 07 08", "76 01"},
                      {"36 03 01", "7F 36 73"},
                      {"36 02 01 02 03", "7F 36 71"},
                      {"37", "7F 37 24"},
                      {"36 02 01 02", "76 02"},
                      {"36 03 01", "7F 36 24"},
                      {"37 00", "7F 37 13"},
                      {"37", "77"},
                      {"34 00 12 10 00 01", "74 10 0A"},
                      {"36 01 55", "7F 36 72"}});
}

TEST(VehicleTransfer, AnswersARepeatedBlockAgain) {
    Erased bench;
    bench.expectTalk({{"34 00 12 10 00 02", "74 10 0A"},
                      {"36 01 01", "76 01"},
                      {"36 01 01", "76 01"},
                      {"36 02 02", "76 02"},
                      {"36 02 02", "76 02"},
                      {"37", "77"},
                      {"35 00 12 10 00 02", "75 10 0A"},
                      {"36 01", "76 01 01 02"},
                      {"36 01", "76 01 01 02"}});
}

TEST(VehicleTransfer, CounterWrapsToZero) {
    VehicleBench bench(replaced(replaced(benchText(), "\"size\": 32, \"fill\": 0", "\"size\": 300, \"fill\": 255"),
                                "\"maxBlockLength\": 10", "\"maxBlockLength\": 3"));
    bench.unlock();
    bench.expectTalk({{"34 00 22 10 00 01 02", "74 10 03"}});
    for (unsigned block = 1; block <= 258; ++block) {
        const auto counter = static_cast<std::uint8_t>(block);
        bench.link->send(Pdu{0x36, counter, 0x11}, false);
        EXPECT_EQ(bench.answers(), digits({0x76, counter}));
    }
    bench.expectTalk({{"37", "77"}});
}

TEST(VehicleTransfer, PackedDataMayBeShorter) {
    Erased bench;
    bench.expectTalk({{"34 11 12 10 00 0A", "74 10 0A"}, {"37", "7F 37 24"}, {"36 01 01", "76 01"}, {"37", "77"}});
}

TEST(VehicleTransfer, EndsWithItsSession) {
    Erased bench;
    bench.expectTalk({{"34 00 12 10 00 0A", "74 10 0A"}});
    bench.pass(3000);
    bench.expectTalk({{"36 01 01", "7F 36 7F"}, {"10 03", "50 03 00 19 00 C8"}, {"36 01 01", "7F 36 24"}});
}

TEST(VehicleTransfer, IsCheckedByARoutine) {
    Erased bench;
    EXPECT_EQ(crc32(bytes("31 32 33 34 35 36 37 38 39")), 0xCBF43926U);
    bench.expectTalk({{"34 00 12 10 00 09", "74 10 0A"},
                      {"36 01 31 32 33 34 35 36 37 38", "76 01"},
                      {"36 02 39", "76 02"},
                      {"37", "77"},
                      {"31 01 02 02 CB F4 39 27", "71 01 02 02 01"},
                      {"31 01 02 02 CB F4 39 26", "71 01 02 02 00"},
                      {"31 03 02 02", "71 03 02 02 00"}});
}

// Bit by bit, as the standard tells it.
std::uint32_t slowCrc(const Bytes& of) {
    std::uint32_t value = 0xFFFFFFFFU;
    for (const std::uint8_t byte : of) {
        value ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? 0xEDB88320U ^ (value >> 1U) : value >> 1U;
    }
    return ~value;
}

TEST(VehicleTransfer, CrcIsTheSameHoweverTheDataIsCut) {
    Bytes data;
    for (unsigned index = 0; index < 61; ++index)
        data.push_back(static_cast<std::uint8_t>(index * index * 37 + 11));
    const std::uint32_t whole = slowCrc(data);
    for (std::size_t cut = 0; cut <= data.size(); ++cut) {
        const std::span<const std::uint8_t> all(data);
        EXPECT_EQ(crc32(all.subspan(cut), crc32(all.first(cut))), whole) << cut;
    }
}

TEST(VehicleTransfer, TakesItsTime) {
    VehicleBench bench(replaced(replaced(benchText(), "\"maxBlockLength\": 10", "\"maxBlockLength\": 10, \"blockTime\": 20"),
                                "\"fill\": 0, \"download\"", "\"fill\": 255, \"download\""));
    bench.unlock();
    bench.expectTalk({{"34 00 12 10 00 01", "74 10 0A"}, {"36 01 01", ""}});
    EXPECT_EQ(bench.answersUntil(30), "20: 76 01");
}

}  // namespace
}  // namespace velkotx::host::test
