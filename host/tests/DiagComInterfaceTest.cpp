// Communication interfaces of a described vehicle.
#include "DiagFakes.h"

#include "cominterface/VehicleComInterfaces.h"

#include <otx/diag/IComInterface.h>
#include <otx/value/Values.h>

#include <gtest/gtest.h>

namespace velkotx::host {
namespace {

using namespace testing;

std::shared_ptr<VehicleDescription> makeInterfaces() {
    auto vehicle = std::make_shared<VehicleDescription>();
    ComInterfaceDescription first;
    first.name = "first";
    first.status = InterfaceStatus::Current;
    first.batteryVoltage.points = {{0s, 12.0}, {10s, 14.0}};
    first.ignition = {{15, {{{0s, 0.0}, {5s, 1.0}}, true, false}}, {30, {{{0s, 1.0}}, false, false}}};
    first.ethernet = {true, false, {{"", {"a"}}, {"all", {"a", "b"}}}};
    first.properties = {{"firmware", std::string("1.2")}, {"channels", std::int64_t{4}}};
    first.resources = {"CAN1", "CAN2"};
    ComInterfaceDescription second;
    second.name = "second";
    ComInterfaceDescription off;
    off.name = "off";
    off.status = InterfaceStatus::NotConnected;
    vehicle->comInterfaces = {first, second, off};
    vehicle->defaultComInterface = "first";
    return vehicle;
}

class DiagComInterfaces : public ::testing::Test {
protected:
    std::shared_ptr<FakeNetwork> network = std::make_shared<FakeNetwork>();
    std::shared_ptr<VehicleDescription> vehicle = makeInterfaces();
    VehicleComInterfaces host{vehicle, std::make_shared<FakeTransport>(network)};
    COtxValue value = host.GetComInterface("first");
    OTX::IComInterface& first = value.ComInterface();
};

TEST_F(DiagComInterfaces, AreListedByStatus) {
    const auto names = [&](int status) {
        std::string text;
        const auto list = host.GetModuleList(status);
        for (int i = 0; i < list.Size(); ++i)
            text += list.ModuleData(i).Name() + ' ';
        return text;
    };
    EXPECT_EQ(names(-1), "first second off ");
    EXPECT_EQ(names(0), "second ");
    EXPECT_EQ(names(1), "first ");
    EXPECT_EQ(names(2), "off ");
    EXPECT_EQ(names(99), "");
}

TEST_F(DiagComInterfaces, AreFoundByName) {
    EXPECT_EQ(host.GetDefaultComInterfaceName(), "first");
    EXPECT_EQ(kindOf([&] { host.GetComInterface("third"); }), 31);
    const auto none = std::make_shared<VehicleDescription>();
    VehicleComInterfaces empty(none, std::make_shared<FakeTransport>(network));
    EXPECT_EQ(kindOf([&] { empty.GetDefaultComInterfaceName(); }), 33);
    EXPECT_EQ(empty.GetModuleList(-1).Size(), 0);
}

TEST_F(DiagComInterfaces, FollowTheClock) {
    EXPECT_EQ(first.GetBatteryVoltage(), 12.0);
    EXPECT_FALSE(first.GetIgnitionState(15));
    network->clock.advance(5s);
    EXPECT_EQ(first.GetBatteryVoltage(), 13.0);
    EXPECT_TRUE(first.GetIgnitionState(15));
    EXPECT_TRUE(first.GetIgnitionState(30));
    EXPECT_TRUE(first.GetIgnitionState(0));
    EXPECT_EQ(kindOf([&] { first.GetIgnitionState(16); }), 32);
    const COtxValue second = host.GetComInterface("second");
    EXPECT_EQ(kindOf([&] { second.ComInterface().GetIgnitionState(0); }), 32);
}

TEST_F(DiagComInterfaces, SwitchEthernetForAllHandles) {
    EXPECT_FALSE(first.IsEthernetActivated());
    EXPECT_EQ(kindOf([&] { first.GetComInterfaceNameListFromEthernet("all"); }), 31);
    first.ActivateEthernet();
    const COtxValue again = host.GetComInterface("first");
    EXPECT_TRUE(again.ComInterface().IsEthernetActivated());
    EXPECT_EQ(first.GetComInterfaceNameListFromEthernet("all").List().size(), 2u);
    EXPECT_EQ(first.GetComInterfaceNameListFromEthernet("other").List().size(), 1u);
    again.ComInterface().DeactivateEthernet();
    EXPECT_FALSE(first.IsEthernetActivated());
    const COtxValue second = host.GetComInterface("second");
    EXPECT_EQ(kindOf([&] { second.ComInterface().ActivateEthernet(); }), 30);
    EXPECT_EQ(kindOf([&] { second.ComInterface().DeactivateEthernet(); }), 30);
}

TEST_F(DiagComInterfaces, TellWhatTheyHave) {
    const COtxValue properties = first.GetComInterfaceProperties();
    EXPECT_EQ(properties.Map().at(COtxString("channels")).Int(), 4);
    EXPECT_EQ(std::string(properties.Map().at(COtxString("firmware")).String()), "1.2");
    const COtxValue resources = first.GetComInterfaceResourceNameList();
    EXPECT_EQ(std::string(resources.List().at(1).String()), "CAN2");
}

TEST_F(DiagComInterfaces, MayBeOff) {
    const COtxValue off = host.GetComInterface("off");
    EXPECT_FALSE(off.ComInterface().IsInterfaceConnected());
    EXPECT_TRUE(first.IsInterfaceConnected());
    EXPECT_EQ(kindOf([&] { off.ComInterface().GetBatteryVoltage(); }), 34);
    EXPECT_EQ(kindOf([&] { off.ComInterface().GetIgnitionState(0); }), 34);
    EXPECT_EQ(kindOf([&] { off.ComInterface().ActivateEthernet(); }), 34);
    EXPECT_NO_THROW(off.ComInterface().GetComInterfaceProperties());
}

TEST_F(DiagComInterfaces, CloseForTheirHandle) {
    const COtxValue other = host.GetComInterface("first");
    first.CloseComInterface();
    first.CloseComInterface();
    EXPECT_EQ(kindOf([&] { first.IsInterfaceConnected(); }), 31);
    EXPECT_EQ(kindOf([&] { first.IsEthernetActivated(); }), 31);
    EXPECT_EQ(kindOf([&] { first.ActivateEthernet(); }), 31);
    EXPECT_EQ(kindOf([&] { first.GetBatteryVoltage(); }), 31);
    EXPECT_EQ(kindOf([&] { first.GetComInterfaceProperties(); }), 31);
    EXPECT_EQ(kindOf([&] { first.GetComInterfaceResourceNameList(); }), 31);
    EXPECT_TRUE(other.ComInterface().IsInterfaceConnected());
}

}  // namespace
}  // namespace velkotx::host
