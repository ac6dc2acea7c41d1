// The host's vehicle communication interfaces.
#pragma once

#include "Handle.h"

#include <otx/diag/IComInterface.h>
#include <otx/host/ComInterfaceHost.h>
#include <otx/host/IPduComInterface.h>

namespace documents {

// An interface that no channel can be opened on. Labelled with its name.
class RecordingComInterface : public Handle, public OTX::IComInterface {
public:
    RecordingComInterface(CallRecorder& recorder, std::string label)
        : Handle(recorder, std::move(label), OTX::ValueType::ComInterface) {}

    OTX::IComInterface& ComInterface() override { return *this; }

    void ActivateEthernet() override;
    void DeactivateEthernet() override;
    bool IsEthernetActivated() override;
    COtxValue GetComInterfaceNameListFromEthernet(const std::string& option) override;
    bool IsInterfaceConnected() override;
    COtxValue GetComInterfaceProperties() override;
    COtxValue GetComInterfaceResourceNameList() override;
    double GetBatteryVoltage() override;
    bool GetIgnitionState(std::int64_t pin) override;
    void CloseComInterface() override;
};

// One that channels can be opened on.
class RecordingPduComInterface : public RecordingComInterface, public ComInterface::IPduComInterface {
public:
    using RecordingComInterface::RecordingComInterface;
};

class RecordingComInterfaces : public ComInterfaceHost {
public:
    explicit RecordingComInterfaces(CallRecorder& recorder) : recorder_(recorder) {}

    ComInterface::CModuleList GetModuleList(int connectionStatus) override;
    std::string GetDefaultComInterfaceName() override;
    COtxValue GetComInterface(const std::string& name) override;

private:
    CallRecorder& recorder_;
};

}  // namespace documents
