// The host objects over the simulated vehicle of the examples: what a sequence does with it.
#include "DiagTestVehicle.h"

#include "cominterface/VehicleComInterfaces.h"
#include "flash/VehicleFlash.h"

#include <vehicle/ReadVehicle.h>
#include <vehicle/SimulatedTransport.h>

#include <otx/diag/IComInterface.h>
#include <otx/diag/IFlashSession.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

namespace velkotx::host {
namespace {

using namespace testing;
using OTX::ValueType;

std::string textOf(const COtxValue& value) { return value.String(); }

std::shared_ptr<const VehicleDescription> readCompact() {
    auto file = readVehicle(std::filesystem::path(VELKOTX_EXAMPLES) / "vehicles" / "compact.json");
    EXPECT_TRUE(file.mistakes.empty());
    return std::make_shared<const VehicleDescription>(std::move(file.description));
}

class DiagVehicle : public ::testing::Test {
protected:
    COtxValue open(const std::string& name, bool identify = false) {
        return host.GetComChannel(COtxString(name), COtxString(), COtxBool(identify));
    }
    // Drives the clock as long as somebody waits for it.
    COtxValue execute(const COtxValue& service, bool suppress = false) {
        auto& diagService = service.DiagService();
        diagService.GetAllResultsAndClear();
        diagService.Execute(suppress);
        while (diagService.GetAllResults().List().empty()) {
            clock->advanceToNextWait();
            std::this_thread::yield();
        }
        return diagService.GetFirstResult();
    }
    COtxValue ask(const COtxValue& channel, const std::string& service,
                  const std::vector<std::pair<std::string, COtxValue>>& parameters = {}) {
        const COtxValue created = channel.ComChannel().CreateDiagServiceByName(COtxString(service));
        for (const auto& [name, value] : parameters)
            created.DiagService().GetRequest().Container().GetParameterByPath(pathTo(name)).Parameter().SetParameterValue(
                value);
        return execute(created).Result().GetFirstResponse();
    }
    std::string nameOf(const COtxValue& response) { return textOf(response.Response().GetResponseName()); }

    std::shared_ptr<const VehicleDescription> vehicle = readCompact();
    std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>();
    std::shared_ptr<Transport> transport = std::make_shared<SimulatedTransport>(vehicle, clock);
    VehicleDiagCom host{vehicle, transport, nullptr};
};

TEST_F(DiagVehicle, IsIdentified) {
    const COtxValue engine = open("Engine", true);
    EXPECT_EQ(textOf(engine.ComChannel().GetComChannelEcuVariantName()), "Engine_04");
    EXPECT_EQ(textOf(responseParameter(ask(engine, "ReadVin"), "Vin")), "ZZZCMPCT0A1000042");
    EXPECT_EQ(responseParameter(ask(engine, "ReadSoftwareVersion"), "Minor", ValueType::Integer).Int(), 20);
}

TEST_F(DiagVehicle, HasTroubleCodes) {
    const COtxValue engine = open("Engine");
    const COtxValue response = ask(engine, "ReadTroubleCodes");
    EXPECT_EQ(nameOf(response), "TroubleCodes");
    const COtxValue codes = response.Container().GetParameterByPath(pathTo("TroubleCodes"));
    EXPECT_EQ(codes.Container().GetParameterAsList().List().size(), 3u);
    ask(engine, "ClearTroubleCodes");
    EXPECT_EQ(ask(engine, "ReadTroubleCodes", {{"StatusMask", COtxInt(8)}})
                  .Container()
                  .GetParameterByPath(pathTo("TroubleCodes"))
                  .Container()
                  .GetParameterAsList()
                  .List()
                  .size(),
              0u);
}

TEST_F(DiagVehicle, HasMeasurementsWithUnits) {
    const COtxValue response = ask(open("Engine"), "ReadMeasurements");
    EXPECT_EQ(responseParameter(response, "EngineSpeed", ValueType::Float).Float(), 780.0);
    const COtxValue temperature = responseParameter(response, "CoolantTemperature");
    EXPECT_EQ(temperature.Quantity().GetDisplayUnit().Unit().Name(), "degC");
    EXPECT_EQ(temperature.Quantity().GetDisplayValue().Float(), 71.0);
}

TEST_F(DiagVehicle, AnswersAsAWhole) {
    // The battery has no number of the vehicle, and says nothing when it isn't asked alone.
    const COtxValue all = open("Engine").ComChannel().CreateDiagServiceByName(COtxString("ReadAllVins"));
    EXPECT_EQ(execute(all).Result().GetAllResponses().List().size(), 2u);
    const COtxValue group = open("AllUnits");
    EXPECT_EQ(execute(group.ComChannel().CreateDiagServiceByName(COtxString("ReadAllVins")))
                  .Result()
                  .GetAllResponses()
                  .List()
                  .size(),
              2u);
}

TEST_F(DiagVehicle, MayTakeItsTime) {
    const COtxValue battery = open("Battery");
    for (int i = 0; i < 3; ++i) {
        const COtxValue response = ask(battery, "ReadCellVoltages");
        const COtxValue cells = response.Container().GetParameterByPath(pathTo("Cells"));
        EXPECT_EQ(static_cast<long long>(cells.Container().GetParameterAsList().List().size()),
                  responseParameter(response, "Count").Int());
    }
    EXPECT_GE(clock->now(), 60ms);
}

TEST_F(DiagVehicle, IsFlashedBlockByBlock) {
    const COtxValue engine = open("Engine");
    EXPECT_EQ(nameOf(ask(engine, "StartSession", {{"Session", COtxString("extended")}})), "SessionStarted");
    EXPECT_EQ(nameOf(ask(engine, "StartSession", {{"Session", COtxString("programming")}})), "SessionStarted");
    const COtxValue seed = responseParameter(ask(engine, "RequestProgrammingSeed"), "Seed");
    const Bytes constant{0x4B, 0x1D, 0x93, 0xC6};
    const COtxValue key = seed.ByteField().Xor(COtxByteField(constant));
    ASSERT_EQ(nameOf(ask(engine, "SendProgrammingKey", {{"Key", key}})), "Unlocked");
    EXPECT_EQ(textOf(responseParameter(ask(engine, "EraseMemory"), "Result")), "ok");

    VehicleFlash flash(vehicle);
    const COtxValue session = flash.GetFlashSession(COtxString("EngineUpdate"));
    auto& data = session.FlashSession();
    for (std::int64_t block = 0; block < data.GetNumberOfBlocks(); ++block) {
        const std::int64_t size = data.GetCompressedSize(block, 0);
        const COtxValue accepted = ask(engine, "RequestDownload",
                                           {{"Address", COtxInt(data.GetStartAddress(block, 0))}, {"Size", COtxInt(size)}});
        ASSERT_EQ(nameOf(accepted), "DownloadAccepted");
        const long long length = responseParameter(accepted, "MaxBlockLength").Int() - 2;
        const COtxValue transfer = engine.ComChannel().CreateDiagServiceByName(COtxString("TransferData"));
        for (std::int64_t position = 0, counter = 1; position < size; position += length, ++counter) {
            setParameter(transfer, "BlockCounter", counter & 0xFF);
            transfer.DiagService().GetRequest().Container().GetParameterByPath(pathTo("Data")).Parameter().SetParameterValue(
                data.GetDownloadData(block, 0, length, position));
            ASSERT_EQ(nameOf(execute(transfer).Result().GetFirstResponse()), "Transferred");
        }
        EXPECT_EQ(nameOf(ask(engine, "TransferExit")), "TransferDone");
        const COtxValue checked = ask(engine, "CheckProgram", {{"Checksum", data.GetChecksum(block, 0)}});
        EXPECT_EQ(textOf(responseParameter(checked, "Result")), "ok");
    }
}

TEST_F(DiagVehicle, HasInterfacesOnItsClock) {
    VehicleComInterfaces interfaces(vehicle, transport);
    const COtxValue comInterface = interfaces.GetComInterface(interfaces.GetDefaultComInterfaceName());
    EXPECT_GT(comInterface.ComInterface().GetBatteryVoltage(), 6.0);
}

}  // namespace
}  // namespace velkotx::host
