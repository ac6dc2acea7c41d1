// A communication interface of a described vehicle, as a sequence sees it.
#pragma once

#include "cominterface/PduComInterface.h"

#include <transport/Clock.h>
#include <vehicle/ComInterfaceDescription.h>

#include <otx/diag/IComInterface.h>
#include <otx/value/COtxValue.h>
#include <otx/value/COtxValueBehaviour.h>

#include <atomic>
#include <memory>
#include <string>

namespace velkotx::host {

// What all handles on one interface share. Any thread.
struct ComInterfaceState {
    ComInterfaceState(std::shared_ptr<const ComInterfaceDescription> described, Clock& time)
        : description(std::move(described)), clock(time), ethernetActivated(description->ethernet.activated) {}

    const std::shared_ptr<const ComInterfaceDescription> description;
    Clock& clock;
    std::atomic<bool> ethernetActivated;
};

// Behind values of type ComInterface. Any thread. On a closed handle every operation but closing throws kind 31, and on an
// interface that isn't connected those that need the vehicle throw kind 34.
class VehicleComInterface final : public COtxValueBehaviour, public OTX::IComInterface, public PduComInterface {
public:
    explicit VehicleComInterface(std::shared_ptr<ComInterfaceState> state);

    OTX::IComInterface& ComInterface() override { return *this; }
    COtxValue ToString() override;
    void requireConnected() const override;

    // Throws kind 30 when there is no Ethernet line.
    void ActivateEthernet() override;
    void DeactivateEthernet() override;
    bool IsEthernetActivated() override;
    // Throws kind 31 while Ethernet isn't activated.
    COtxValue GetComInterfaceNameListFromEthernet(const std::string& option) override;
    bool IsInterfaceConnected() override;
    // A Map of names.
    COtxValue GetComInterfaceProperties() override;
    COtxValue GetComInterfaceResourceNameList() override;
    double GetBatteryVoltage() override;
    // Pin 0 stands for the first that is described, unless there is a pin 0. Throws kind 32 for a pin that isn't there.
    bool GetIgnitionState(std::int64_t pin) override;
    // This handle only; channels on the interface stay.
    void CloseComInterface() override;

private:
    void requireOpen() const;
    void requireEthernet() const;

    const std::shared_ptr<ComInterfaceState> state_;
    const ComInterfaceDescription& description_;
    std::atomic<bool> open_{true};
};

}  // namespace velkotx::host
