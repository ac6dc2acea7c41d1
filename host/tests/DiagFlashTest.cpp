// Flash data of a described vehicle.
#include "DiagFakes.h"

#include "flash/VehicleFlash.h"

#include <otx/diag/IFlashSession.h>
#include <otx/value/Values.h>

#include <gtest/gtest.h>

namespace velkotx::host {
namespace {

using namespace testing;

FlashSegmentDescription segment(std::uint64_t address, std::size_t size, std::uint8_t first) {
    Bytes bytes;
    for (std::size_t index = 0; index < size; ++index)
        bytes.push_back(static_cast<std::uint8_t>(first + index));
    FlashSegmentDescription described;
    described.startAddress = address;
    described.uncompressedSize = 2 * size;
    described.data = std::make_shared<const Bytes>(std::move(bytes));
    return described;
}

std::shared_ptr<VehicleDescription> makeFlash() {
    auto vehicle = std::make_shared<VehicleDescription>();
    FlashSessionDescription session;
    session.id = "Application";
    session.audiences = {3};
    session.securityAccessLevel = "Programming";
    FlashBlockDescription code;
    code.id = "code";
    code.index = 5;
    code.maxBlockLength = 4095;
    code.segments = {segment(0x1000, 4, 0), segment(0x2000, 6, 10)};
    code.segments[1].compressionEncryption = "11";
    code.ownIdents = {{"part", std::string("A1")}, {"version", std::int64_t{7}}};
    code.securities = {{"CRC32", {1, 2, 3, 4}, {}}};
    FlashBlockDescription data;
    data.id = "data";
    data.addressLength = 3;
    data.sizeLength = 2;
    data.segments = {segment(0x8000, 2, 90)};
    data.ownIdents = {{"part", std::string("B1")}};
    data.securities = {{"SHA", {9}, {}}};
    session.blocks = {code, data};
    vehicle->flashSessions = {session, {}, {}};
    vehicle->flashSessions[1].id = "Everybody";
    vehicle->flashSessions[2].id = "Readout";
    vehicle->flashSessions[2].direction = FlashDirection::Upload;
    return vehicle;
}

class DiagFlash : public ::testing::Test {
protected:
    Bytes data(std::int64_t block, std::int64_t segment, std::int64_t size, std::int64_t position) {
        const COtxValue bytes = flash.GetDownloadData(block, segment, size, position);
        return static_cast<const std::vector<unsigned char>&>(bytes.ByteField());
    }

    VehicleFlash host{makeFlash()};
    COtxValue session = host.GetFlashSession(COtxString("Application"));
    OTX::IFlashSession& flash = session.FlashSession();
};

TEST_F(DiagFlash, SessionsAreListedByDirectionAndAudience) {
    const auto ids = [&](const std::string& direction, int audience) {
        std::string text;
        const COtxValue list = host.GetListOfValidFlashSessions(direction, audience);
        for (const COtxValue& one : list.List())
            text += std::string(one.FlashSession().GetSessionID().String()) + ' ';
        return text;
    };
    EXPECT_EQ(ids("DOWNLOAD", -1), "Application Everybody ");
    EXPECT_EQ(ids("DOWNLOAD", 3), "Application Everybody ");
    EXPECT_EQ(ids("DOWNLOAD", 0), "Everybody ");
    EXPECT_EQ(ids("UPLOAD", -1), "Readout ");
    EXPECT_EQ(kindOf([&] { ids("SIDEWAYS", -1); }), 26);
}

TEST_F(DiagFlash, SessionsAreFoundById) {
    EXPECT_EQ(session.Type(), OTX::ValueType::FlashSession);
    EXPECT_TRUE(host.GetFlashSession(session) == session);
    EXPECT_TRUE(host.GetFlashSession(COtxString("Application")) == session);
    EXPECT_FALSE(host.GetFlashSession(COtxString("Readout")) == session);
    EXPECT_EQ(kindOf([&] { host.GetFlashSession(COtxString("Nothing")); }), 26);
    EXPECT_EQ(kindOf([&] { host.GetFlashSession(COtxList()); }), 26);
}

TEST_F(DiagFlash, BlocksAndSegmentsHaveNumbers) {
    EXPECT_EQ(flash.GetNumberOfBlocks(), 2);
    EXPECT_EQ(flash.GetNumberOfSegments(0), 2);
    EXPECT_EQ(flash.GetStartAddress(0, 1), 0x2000);
    EXPECT_EQ(flash.GetUncompressedSize(0, 1), 12);
    EXPECT_EQ(flash.GetCompressedSize(0, 1), 6);
    EXPECT_EQ(std::string(flash.GetLogicalBlockID(0).String()), "code");
    EXPECT_EQ(flash.GetLogicalBlockIndex(0).Int(), 5);
    EXPECT_EQ(flash.GetMaxNumberOfBlockLength(0).Int(), 4095);
    EXPECT_EQ(flash.GetFlashDataAddressLength(1).Int(), 3);
    EXPECT_EQ(flash.GetFlashDataSizeLength(1).Int(), 2);
    EXPECT_EQ(std::string(flash.GetCompressionEncryption(0, 0).String()), "00");
    EXPECT_EQ(std::string(flash.GetCompressionEncryption(0, 1).String()), "11");
    EXPECT_EQ(std::string(flash.GetSecurityAccessLevel().String()), "Programming");
    EXPECT_EQ(flash.GetNumberOfOwnIdents(0), 2);
    EXPECT_EQ(flash.GetOwnIdent(0, 1).Int(), 7);
    EXPECT_EQ(flash.GetNumberOfSecurities(0), 1);
    EXPECT_EQ(std::string(flash.GetSecurityMethod(1, 0).String()), "SHA");
    EXPECT_EQ(flash.GetChecksum(0, 0).ByteField().size(), 4u);
}

TEST_F(DiagFlash, MinusOneIsAll) {
    EXPECT_EQ(flash.GetNumberOfSegments(-1), 3);
    EXPECT_EQ(flash.GetStartAddress(-1, 2), 0x8000);
    EXPECT_EQ(flash.GetStartAddress(0, -1), 0x1000);
    EXPECT_EQ(flash.GetStartAddress(-1, -1), 0x1000);
    EXPECT_EQ(flash.GetCompressedSize(0, -1), 10);
    EXPECT_EQ(flash.GetCompressedSize(-1, -1), 12);
    EXPECT_EQ(flash.GetUncompressedSize(-1, -1), 24);
    EXPECT_EQ(flash.GetNumberOfSecurities(-1), 2);
    EXPECT_EQ(std::string(flash.GetSecurityMethod(-1, 1).String()), "SHA");
    EXPECT_EQ(flash.GetChecksum(-1, 1).ByteField().size(), 1u);
    EXPECT_EQ(std::string(flash.GetOwnIdent(-1, 2).String()), "B1");
    EXPECT_EQ(std::string(flash.GetLogicalBlockID(-1).String()), "code");
    EXPECT_EQ(std::string(flash.GetCompressionEncryption(0, -1).String()), "00");
}

TEST_F(DiagFlash, DataIsCutAcrossSegments) {
    EXPECT_EQ(data(0, 0, 2, 1), (Bytes{1, 2}));
    EXPECT_EQ(data(0, 0, 100, 2), (Bytes{2, 3}));
    EXPECT_EQ(data(0, 0, -1, 0), (Bytes{0, 1, 2, 3}));
    EXPECT_EQ(data(0, 0, 10, 4), Bytes());
    EXPECT_EQ(data(0, -1, 4, 2), (Bytes{2, 3, 10, 11}));
    EXPECT_EQ(data(-1, -1, -1, 8), (Bytes{14, 15, 90, 91}));
    EXPECT_EQ(data(-1, -1, 0, 0), Bytes());
    EXPECT_EQ(kindOf([&] { data(0, 0, 1, 5); }), 26);
    EXPECT_EQ(kindOf([&] { data(0, 0, 1, -1); }), 26);
    EXPECT_EQ(kindOf([&] { data(0, 0, -2, 0); }), 26);
}

TEST_F(DiagFlash, WhatIsNotThereIsAFlashException) {
    EXPECT_EQ(kindOf([&] { flash.GetNumberOfSegments(2); }), 26);
    EXPECT_EQ(kindOf([&] { flash.GetNumberOfSegments(-2); }), 26);
    EXPECT_EQ(kindOf([&] { flash.GetStartAddress(0, 2); }), 26);
    EXPECT_EQ(kindOf([&] { flash.GetStartAddress(0, -3); }), 26);
    std::string why;
    EXPECT_EQ(kindOf([&] { flash.GetOwnIdent(0, 2); }, &why), 26);
    EXPECT_EQ(why, "there is no own ident number 2 in the flash data, only 0 to 1");
    EXPECT_EQ(kindOf([&] { flash.GetSecurityMethod(1, 1); }, &why), 26);
    EXPECT_EQ(why, "there is no security number 1 in the flash data, only number 0");
    EXPECT_EQ(kindOf([&] { flash.GetSecurityMethod(0, 1); }), 26);
    EXPECT_EQ(kindOf([&] { flash.GetChecksum(0, -1); }), 26);
    EXPECT_EQ(kindOf([&] { flash.GetLogicalBlockID(9); }), 26);
    const COtxValue empty = host.GetFlashSession(COtxString("Everybody"));
    EXPECT_EQ(empty.FlashSession().GetNumberOfSegments(-1), 0);
    EXPECT_EQ(kindOf([&] { empty.FlashSession().GetStartAddress(-1, -1); }), 26);
    EXPECT_EQ(kindOf([&] { empty.FlashSession().GetLogicalBlockID(-1); }, &why), 26);
    EXPECT_EQ(why, "there is no block number 0 in the flash data, none at all");
}

}  // namespace
}  // namespace velkotx::host
