// A communication interface of a described vehicle, as a sequence sees it.
#include "cominterface/VehicleComInterface.h"

#include "diag/CodedValue.h"
#include "diag/DiagFailure.h"

#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace velkotx::host {

using OTX::Exceptions_e;

namespace {

COtxValue listOf(const std::vector<std::string>& names) {
    std::vector<COtxValue> values;
    values.reserve(names.size());
    for (const std::string& name : names)
        values.push_back(COtxString(name));
    return COtxList(std::move(values));
}

}  // namespace

VehicleComInterface::VehicleComInterface(std::shared_ptr<ComInterfaceState> state)
    : COtxValueBehaviour(OTX::ValueType::ComInterface), state_(std::move(state)), description_(*state_->description) {}

COtxValue VehicleComInterface::ToString() { return COtxString(description_.name); }

void VehicleComInterface::requireOpen() const {
    if (!open_)
        fail(Exceptions_e::ComInterfaceException, "interface '" + description_.name + "' has been closed");
}

void VehicleComInterface::requireConnected() const {
    requireOpen();
    if (description_.status == InterfaceStatus::NotConnected)
        fail(Exceptions_e::VCINotConnectedException, "interface '" + description_.name + "' is not connected");
}

void VehicleComInterface::requireEthernet() const {
    requireConnected();
    if (!description_.ethernet.available)
        fail(Exceptions_e::ActivateEthernetException, "interface '" + description_.name + "' has no Ethernet line");
}

void VehicleComInterface::ActivateEthernet() {
    requireEthernet();
    state_->ethernetActivated = true;
}

void VehicleComInterface::DeactivateEthernet() {
    requireEthernet();
    state_->ethernetActivated = false;
}

bool VehicleComInterface::IsEthernetActivated() {
    requireOpen();
    return state_->ethernetActivated;
}

COtxValue VehicleComInterface::GetComInterfaceNameListFromEthernet(const std::string& option) {
    requireConnected();
    if (!state_->ethernetActivated)
        fail(Exceptions_e::ComInterfaceException, "Ethernet of interface '" + description_.name + "' is not activated");
    const auto& lists = description_.ethernet.interfaces;
    auto found = lists.find(option);
    if (found == lists.end())
        found = lists.find(std::string());
    return found == lists.end() ? COtxList() : listOf(found->second);
}

bool VehicleComInterface::IsInterfaceConnected() {
    requireOpen();
    return description_.status != InterfaceStatus::NotConnected;
}

COtxValue VehicleComInterface::GetComInterfaceProperties() {
    requireOpen();
    std::map<COtxValue, COtxValue> properties;
    for (const auto& [name, value] : description_.properties)
        properties.emplace(COtxString(name), toValue(value));
    return COtxMap(std::move(properties));
}

COtxValue VehicleComInterface::GetComInterfaceResourceNameList() {
    requireOpen();
    return listOf(description_.resources);
}

double VehicleComInterface::GetBatteryVoltage() {
    requireConnected();
    return description_.batteryVoltage.at(state_->clock.now());
}

bool VehicleComInterface::GetIgnitionState(std::int64_t pin) {
    requireConnected();
    const auto& pins = description_.ignition;
    auto found = std::find_if(pins.begin(), pins.end(), [&](const IgnitionPin& one) { return one.pin == pin; });
    if (found == pins.end() && pin == 0)
        found = pins.begin();
    if (found == pins.end())
        fail(Exceptions_e::IgnitionStateException,
             "interface '" + description_.name + "' has no ignition on pin " + std::to_string(pin));
    return found->state.at(state_->clock.now()) != 0;
}

void VehicleComInterface::CloseComInterface() { open_ = false; }

}  // namespace velkotx::host
