// Channels and the host that opens them.
#include "DiagTestVehicle.h"

#include "cominterface/VehicleComInterfaces.h"
#include "diag/PduPrinter.h"
#include "diag/UdsText.h"

#include <otx/diag/IComInterface.h>

#include <gtest/gtest.h>

#include <sstream>
#include <thread>

namespace velkotx::host {
namespace {

using namespace testing;
using OTX::ValueType;

std::string textOf(const COtxValue& value) { return value.String(); }

class DiagChannels : public ::testing::Test, protected TestHost {};

TEST_F(DiagChannels, AreSharedUntilTheyAreClosed) {
    const COtxValue channel = open();
    EXPECT_EQ(channel.Type(), ValueType::ComChannel);
    EXPECT_TRUE(channel == open());
    EXPECT_FALSE(channel == host.CreateComChannel(COtxString("Engine"), COtxString()));
    channel.ComChannel().CloseComChannel();
    EXPECT_FALSE(channel == open());
    EXPECT_EQ(kindOf([&] { channel.ComChannel().StartCommunication(); }), 12);
    EXPECT_EQ(kindOf([&] { channel.ComChannel().ExecuteHexDiagService(COtxByteField({0x3E, 0x00}), true); }), 12);
}

TEST_F(DiagChannels, UnknownOnesAreRefused) {
    EXPECT_EQ(kindOf([&] { open("Nobody"); }), 14);
    // Described, but nobody is there.
    EXPECT_EQ(kindOf([&] { open("Lost"); }), 14);
    EXPECT_EQ(kindOf([&] { host.CreateComChannel(COtxString("Nobody"), COtxString()); }), 14);
    EXPECT_EQ(kindOf([&] { open("Engine", "Euro99"); }), 8);
    EXPECT_EQ(kindOf([&] { host.GetComChannel(COtxInt(1), COtxString(), COtxBool(false)); }), 5);
    EXPECT_EQ(kindOf([&] { host.GetComChannel(COtxString("Engine"), COtxString(), COtxString("no")); }), 5);
}

TEST_F(DiagChannels, GoThroughTheirStates) {
    const COtxValue channel = host.CreateComChannel(COtxString("Engine"), COtxString());
    auto& com = channel.ComChannel();
    EXPECT_EQ(com.GetComChannelState().Int(), COtxComChannelState::Created);
    const COtxValue vin = com.CreateDiagServiceByName(COtxString("ReadVin"));
    EXPECT_EQ(kindOf([&] { vin.DiagService().Execute(false); }), 12);
    com.StartCommunication();
    com.StartCommunication();
    EXPECT_EQ(com.GetComChannelState().Int(), COtxComChannelState::Communication);
    EXPECT_NO_THROW(vin.DiagService().Execute(false));
    com.StopCommunication();
    EXPECT_EQ(com.GetComChannelState().Int(), COtxComChannelState::Online);
    EXPECT_EQ(kindOf([&] { vin.DiagService().Execute(false); }), 12);
    EXPECT_EQ(kindOf([&] { com.IdentifyAndSelectVariant(); }), 12);
    com.StartCommunication();
    EXPECT_NO_THROW(vin.DiagService().Execute(false));
    com.CloseComChannel();
    com.CloseComChannel();
    EXPECT_EQ(com.GetComChannelState().Int(), COtxComChannelState::Offline);
}

TEST_F(DiagChannels, OfferServicesByNameAndSemantic) {
    const COtxValue channel = open();
    auto& com = channel.ComChannel();
    EXPECT_EQ(textOf(com.CreateDiagServiceByName(COtxString("ReadVin")).DiagService().GetDiagServiceName()), "ReadVin");
    EXPECT_EQ(kindOf([&] { com.CreateDiagServiceByName(COtxString("ReadNothing")); }), 8);
    EXPECT_EQ(textOf(com.CreateDiagServiceBySemantic(COtxString("SESSION")).DiagService().GetDiagServiceName()),
              "StartSession");
    EXPECT_EQ(kindOf([&] { com.CreateDiagServiceBySemantic(COtxString("NOTHING")); }), 8);
    EXPECT_EQ(kindOf([&] { com.CreateDiagServiceBySemantic(COtxString("DATA")); }), 9);
    EXPECT_EQ(com.GetDiagServiceListBySemantic(COtxString("DATA")).List().size(), 2u);
    EXPECT_TRUE(com.GetDiagServiceListBySemantic(COtxString("NOTHING")).List().empty());
    EXPECT_FALSE(com.CreateDiagServiceByName(COtxString("ReadVin")) == com.CreateDiagServiceByName(COtxString("ReadVin")));
}

TEST_F(DiagChannels, StandOnVariants) {
    const COtxValue base = open();
    EXPECT_EQ(textOf(base.ComChannel().GetComChannelEcuVariantName()), "");
    EXPECT_FALSE(base.ComChannel().IsVariant().Bool());
    EXPECT_EQ(kindOf([&] { base.ComChannel().CreateDiagServiceByName(COtxString("Regenerate")); }), 8);
    const COtxValue chosen = open("Engine", "Euro6");
    EXPECT_FALSE(chosen == base);
    EXPECT_TRUE(chosen == open("Engine", "Euro6"));
    EXPECT_TRUE(chosen.ComChannel().IsVariant().Bool());
    const COtxValue vin = chosen.ComChannel().CreateDiagServiceByName(COtxString("ReadVin"));
    vin.DiagService().Execute(false);
    EXPECT_EQ(network->sent().back(), (Pdu{0x22, 0xF1, 0x91}));
    EXPECT_NO_THROW(chosen.ComChannel().CreateDiagServiceByName(COtxString("StartSession")));
}

TEST_F(DiagChannels, IdentifyTheirVariant) {
    const COtxValue channel = open("Engine", "", true);
    EXPECT_EQ(textOf(channel.ComChannel().GetComChannelEcuVariantName()), "Euro6");
    // Each identifier is read once, and not the second one of a variant that is out already.
    EXPECT_EQ(network->sent(), (std::vector<Pdu>{{0x22, 0xF1, 0x87}}));
    EXPECT_NO_THROW(channel.ComChannel().CreateDiagServiceByName(COtxString("Regenerate")));
}

TEST_F(DiagChannels, StayWhereTheyAreWhenNoVariantFits) {
    const COtxValue channel = open("Engine", "Euro5");
    network->handle([](const Pdu& request, bool) -> std::vector<FakeAnswer> { return {{{0x7F, request[0], 0x31}}}; });
    std::string why;
    EXPECT_EQ(kindOf([&] { channel.ComChannel().IdentifyAndSelectVariant(); }, &why), 7);
    EXPECT_EQ(why, "'Engine' is none of its variants: 'Euro5': F187 is refused; 'Euro6': F187 is refused");
    EXPECT_EQ(textOf(channel.ComChannel().GetComChannelEcuVariantName()), "Euro5");
    network->handle(nullptr);
    EXPECT_EQ(kindOf([&] { channel.ComChannel().IdentifyAndSelectVariant(); }), 15);
    network->handle([](const Pdu&, bool) -> std::vector<FakeAnswer> { return {{{0x62, 0xF1, 0x87, 0xAA}, 20ms}}; });
    EXPECT_EQ(kindOf([&] { channel.ComChannel().IdentifyAndSelectVariant(); }, &why), 7);
    EXPECT_EQ(why, "'Engine' is none of its variants: 'Euro5': F187 is AA, not 05 at byte 1; 'Euro6': F187 is AA, not 06 at byte 1");
}

TEST_F(DiagChannels, HaveComParameters) {
    const COtxValue channel = open();
    auto& com = channel.ComChannel();
    const auto name = COtxString("CP_Retries");
    EXPECT_EQ(com.GetComParameterValue(name, ValueType::Integer).Int(), 3);
    com.SetComParameter(name, COtxInt(7));
    EXPECT_EQ(com.GetComParameterValue(name, ValueType::Integer).Int(), 7);
    EXPECT_EQ(com.GetDefaultComParameterValue(name, ValueType::Integer).Int(), 3);
    EXPECT_EQ(textOf(com.GetComParameterValue(name, ValueType::String)), "7");
    EXPECT_EQ(com.GetComParameterValue(name, ValueType::Float).Float(), 7.0);
    EXPECT_TRUE(com.GetComParameterValue(name, ValueType::Boolean).Bool());
    EXPECT_EQ(com.GetComParameterValue(name, ValueType::Quantity).Type(), ValueType::Quantity);
    EXPECT_EQ(com.GetComParameterValue(name, ValueType::ByteField).ByteField().size(), 8u);
    com.SetComParameter(COtxString("CP_Name"), COtxString("engine"));
    EXPECT_EQ(textOf(com.GetComParameterValue(COtxString("CP_Name"), ValueType::Empty)), "engine");
    EXPECT_EQ(kindOf([&] { com.SetComParameter(COtxString("CP_None"), COtxInt(1)); }), 8);
    EXPECT_EQ(kindOf([&] { com.GetComParameterValue(COtxString("CP_None"), ValueType::Integer); }), 8);
    EXPECT_EQ(kindOf([&] { com.GetDefaultComParameterValue(COtxString("CP_None"), ValueType::Integer); }), 8);
    EXPECT_EQ(kindOf([&] { com.SetComParameter(name, COtxList()); }), 5);
    EXPECT_EQ(kindOf([&] { com.SetComParameter(COtxString("CP_Address"), COtxInt(1)); }), 5);
    EXPECT_EQ(kindOf([&] { com.SetComParameter(COtxInt(0), COtxInt(1)); }), 5);
}

TEST_F(DiagChannels, ComParametersSetTheTimes) {
    const COtxValue channel = open();
    auto& com = channel.ComChannel();
    // The description's own default of 80 ms.
    network->handle([](const Pdu&, bool) -> std::vector<FakeAnswer> { return {{{0x7E, 0x00}, 79ms}}; });
    const auto testerPresent = COtxByteField({0x3E, 0x00});
    EXPECT_NO_THROW(com.ExecuteHexDiagService(testerPresent, true));
    com.SetComParameter(COtxString("CP_P2Max"), COtxInt(78000));
    EXPECT_EQ(kindOf([&] { com.ExecuteHexDiagService(testerPresent, true); }), 15);
    EXPECT_EQ(kindOf([&] { com.SetComParameter(COtxString("CP_P2Max"), COtxInt(-1)); }), 7);
    EXPECT_EQ(kindOf([&] { com.SetComParameter(COtxString("CP_P2Max"), COtxFloat(1e300)); }), 7);
    EXPECT_EQ(com.GetComParameterValue(COtxString("CP_RC78CompletionTimeout"), ValueType::Integer).Int(), 25000000);
    EXPECT_EQ(com.GetComParameterValue(COtxString("CP_TesterPresentTime"), ValueType::Integer).Int(), 2000000);
    EXPECT_EQ(com.GetComParameterValue(COtxString("CP_P2Star"), ValueType::Integer).Int(), 5000000);
    EXPECT_TRUE(com.GetComParameterValue(COtxString("CP_TesterPresentHandling"), ValueType::Boolean).Bool());
}

TEST_F(DiagChannels, ComplexComParametersAreCopies) {
    const COtxValue channel = open();
    auto& com = channel.ComChannel();
    const auto name = COtxString("CP_Address");
    const COtxValue copy = com.GetComplexComParameter(name);
    const auto part = [](const COtxValue& parameter) -> OTX::IParameter& {
        static COtxValue kept;
        kept = parameter.Container().GetParameterByPath(pathTo("response"));
        return kept.Parameter();
    };
    EXPECT_TRUE(copy.Parameter().IsComplexParameter().Bool());
    part(copy).SetParameterValue(COtxInt(0x700));
    EXPECT_EQ(part(com.GetComplexComParameter(name)).GetParameterValue(ValueType::Integer).Int(), 0x7E8);
    com.SetComplexComParameter(copy);
    EXPECT_EQ(part(com.GetComplexComParameter(name)).GetParameterValue(ValueType::Integer).Int(), 0x700);
    EXPECT_EQ(part(com.GetDefaultComplexComParameter(name)).GetParameterValue(ValueType::Integer).Int(), 0x7E8);
    // Of another channel.
    const COtxValue other = host.CreateComChannel(COtxString("Engine"), COtxString());
    other.ComChannel().SetComplexComParameter(copy);
    EXPECT_EQ(part(other.ComChannel().GetComplexComParameter(name)).GetParameterValue(ValueType::Integer).Int(), 0x700);
    EXPECT_EQ(kindOf([&] { com.GetComplexComParameter(COtxString("CP_Retries")); }), 5);
    EXPECT_EQ(kindOf([&] { com.GetComplexComParameter(COtxString("CP_None")); }), 8);
    EXPECT_EQ(kindOf([&] { com.GetDefaultComplexComParameter(COtxString("CP_None")); }), 8);
    EXPECT_EQ(kindOf([&] { com.SetComplexComParameter(COtxInt(1)); }), 5);
    const COtxValue response = executed(service("ReadVin")).Result().GetFirstResponse();
    EXPECT_EQ(kindOf([&] { com.SetComplexComParameter(response.Container().GetParameterByPath(pathTo("vin"))); }), 5);
}

TEST_F(DiagChannels, SendRawBytes) {
    const COtxValue channel = open();
    auto& com = channel.ComChannel();
    const COtxValue response = com.ExecuteHexDiagService(COtxByteField({0x22, 0xF1, 0x90}), true);
    EXPECT_EQ(response.Type(), ValueType::Response);
    EXPECT_EQ(response.Message().GetPdu().ByteField().size(), 6u);
    EXPECT_TRUE(response.Response().IsPositive());
    EXPECT_EQ(com.ExecuteHexDiagService(COtxByteField({0x22, 0xF1, 0x90}), false).Type(), ValueType::Empty);
    EXPECT_FALSE(com.ExecuteHexDiagService(COtxByteField({0x99}), true).Response().IsPositive());
    EXPECT_EQ(com.ExecuteHexDiagService(COtxByteField({0x10, 0x83}), true).Message().GetPdu().ByteField().size(), 0u);
    EXPECT_EQ(kindOf([&] { com.ExecuteHexDiagService(COtxByteField(), true); }), 7);
    EXPECT_EQ(kindOf([&] { com.ExecuteHexDiagService(COtxMap(), true); }), 5);
    network->handle(nullptr);
    EXPECT_EQ(kindOf([&] { com.ExecuteHexDiagService(COtxByteField({0x3E, 0x00}), true); }), 15);
    EXPECT_EQ(com.ExecuteHexDiagService(COtxByteField({0x3E, 0x00}), false).Type(), ValueType::Empty);
    network->handle([](const Pdu&, bool) -> std::vector<FakeAnswer> { throw TransportError("gone"); });
    EXPECT_EQ(kindOf([&] { com.ExecuteHexDiagService(COtxByteField({0x3E, 0x00}), false); }), 15);
    EXPECT_EQ(com.GetComChannelState().Int(), COtxComChannelState::Offline);
}

TEST_F(DiagChannels, SendRawBytesToAll) {
    const COtxValue channel = open();
    auto& com = channel.ComChannel();
    network->handle([](const Pdu&, bool functional) -> std::vector<FakeAnswer> {
        if (!functional) return {};
        return {{{0x7E, 0x00}, 1ms, "Engine"}, {{0x7E, 0x00}, 2ms, "Body"}};
    });
    const COtxValue responses = com.ExecuteHexDiagServiceFunctional(COtxByteField({0x3E, 0x00}));
    ASSERT_EQ(responses.List().size(), 2u);
    EXPECT_EQ(textOf(responses.List()[1].Response().GetComChannelIdentifier()), "Body");
    network->handle(nullptr);
    network->clock.advance(1s);
    EXPECT_TRUE(com.ExecuteHexDiagServiceFunctional(COtxByteField({0x3E, 0x00})).List().empty());
}

TEST_F(DiagChannels, ToAGroupAreFunctional) {
    const COtxValue group = open("All");
    auto& com = group.ComChannel();
    std::string why;
    EXPECT_EQ(kindOf([&] { com.CreateDiagServiceByName(COtxString("ReadVin")); }, &why), 8);
    EXPECT_EQ(why, "the group 'All' has no functional service 'ReadVin'; there are 'ReadAll'");
    executed(com.CreateDiagServiceByName(COtxString("ReadAll")));
    com.ExecuteHexDiagService(COtxByteField({0x22, 0x00, 0x01}), true);
    EXPECT_EQ(network->functional(), (std::vector<bool>{true, true}));
    EXPECT_EQ(kindOf([&] { open("All", "Euro5"); }), 8);
    EXPECT_EQ(com.GetComParameterValue(COtxString("CP_P2Max"), ValueType::Integer).Int(), 60000);
    EXPECT_EQ(kindOf([&] { com.GetComParameterValue(COtxString("CP_Name"), ValueType::String); }), 8);
    EXPECT_EQ(com.GetComParameterValue(COtxString("CP_P2Star"), ValueType::Integer).Int(), 5000000);
    EXPECT_EQ(kindOf([&] { com.IdentifyAndSelectVariant(); }), 7);
}

TEST_F(DiagChannels, ACancelledRunEndsTheWaitForARawResponse) {
    network->hold(true);
    network->handle([](const Pdu&, bool) -> std::vector<FakeAnswer> { return {{{0x7E, 0x00}, 10ms}}; });
    const COtxValue channel = open();
    // Another thread closes what belongs to this one, as the end of a run does, as soon as it is there.
    std::jthread canceller([&, self = std::this_thread::get_id()](const std::stop_token& stop) {
        network->awaitHeld();
        while (!stop.stop_requested()) COtxEventSource::CloseAll(self);
    });
    EXPECT_EQ(kindOf([&] { channel.ComChannel().ExecuteHexDiagService(COtxByteField({0x3E, 0x00}), true); }), 12);
    canceller.request_stop();
    network->hold(false);
}

TEST_F(DiagChannels, OpenOnInterfaces) {
    vehicle->comInterfaces.resize(2);
    vehicle->comInterfaces[0].name = "one";
    vehicle->comInterfaces[1].name = "off";
    vehicle->comInterfaces[1].status = InterfaceStatus::NotConnected;
    VehicleComInterfaces interfaces(vehicle, std::make_shared<FakeTransport>(network));
    const auto on = [](const COtxValue& value) {
        return std::dynamic_pointer_cast<ComInterface::IPduComInterface>(value.GetBehaviourReference());
    };
    const COtxValue one = interfaces.GetComInterface("one");
    const auto open = [&](const std::shared_ptr<ComInterface::IPduComInterface>& comInterface) {
        return host.GetComChannelFromComInterface(comInterface, COtxString("Engine"), COtxString(), COtxBool(false));
    };
    EXPECT_EQ(open(on(one)).ComChannel().GetComChannelState().Int(), COtxComChannelState::Communication);
    EXPECT_EQ(host.CreateComChannelFromComInterface(on(one), COtxString("Engine"), COtxString())
                  .ComChannel()
                  .GetComChannelState()
                  .Int(),
              COtxComChannelState::Created);
    EXPECT_EQ(kindOf([&] { open(nullptr); }), 14);
    EXPECT_EQ(kindOf([&] { host.CreateComChannelFromComInterface(nullptr, COtxString("Engine"), COtxString()); }), 14);
    EXPECT_EQ(kindOf([&] { open(on(interfaces.GetComInterface("off"))); }), 34);
    one.ComInterface().CloseComInterface();
    EXPECT_EQ(kindOf([&] { open(on(one)); }), 31);
}

TEST(DiagTrace, PrintsALineForEachPdu) {
    const auto network = std::make_shared<FakeNetwork>();
    network->handle([](const Pdu& request, bool) { return engineAnswer(request); });
    std::ostringstream out;
    const auto printer = std::make_shared<PduPrinter>(out);
    VehicleDiagCom host(makeVehicle(), std::make_shared<FakeTransport>(network), printer);
    network->clock.advance(1050123us);
    const COtxValue kept = host.GetComChannel(COtxString("Engine"), COtxString(), COtxBool(false));
    kept.ComChannel().ExecuteHexDiagService(COtxByteField({0x22, 0xF1, 0x90}), true);
    kept.ComChannel().ExecuteHexDiagService(COtxByteField({0x99}), true);
    network->handle([](const Pdu&, bool) -> std::vector<FakeAnswer> { return {{{0x7E, 0x00}, 2ms, "Body"}}; });
    kept.ComChannel().ExecuteHexDiagServiceFunctional(COtxByteField({0x3E, 0x00}));
    EXPECT_EQ(out.str(),
              "1.050123 > Engine 22 F1 90  ReadDataByIdentifier F190\n"
              "1.050123 < Engine 62 F1 90 57 56 57  ReadDataByIdentifier F190: positive, 6 bytes\n"
              "1.050123 > Engine 99  service 99\n"
              "1.050123 < Engine 7F 99 11  service 99: serviceNotSupported (11)\n"
              "1.050123 >> Engine 3E 00  TesterPresent 00\n"
              "1.052123 < Engine/Body 7E 00  TesterPresent 00: positive, 2 bytes\n");
}

TEST(DiagTrace, SpellsAnyBytes) {
    EXPECT_EQ(pduText({}), "nothing");
    EXPECT_EQ(pduText(Bytes{0x7F}), "negative response: broken off");
    EXPECT_EQ(pduText(Bytes{0x7F, 0x22}), "ReadDataByIdentifier: broken off");
    EXPECT_EQ(pduText(Bytes{0x7F, 0x22, 0x78}), "ReadDataByIdentifier: requestCorrectlyReceivedResponsePending (78)");
    EXPECT_EQ(pduText(Bytes{0x7F, 0x22, 0xFE}), "ReadDataByIdentifier: FE");
    EXPECT_EQ(pduText(Bytes{0x22, 0xF1}), "ReadDataByIdentifier F1");
    EXPECT_EQ(hexText(Bytes(40, 0xAB)).substr(90), "AB AB ... (40 bytes)");
    for (int first = 0; first < 256; ++first)
        for (std::size_t size = 1; size < 6; ++size)
            EXPECT_FALSE(pduText(Bytes(size, static_cast<std::uint8_t>(first))).empty());
}

}  // namespace
}  // namespace velkotx::host
