// A vehicle communication interface.
#pragma once

#include <otx/Export.h>

#include <cstdint>
#include <string>

class COtxValue;

namespace OTX {

// Behind COtxValue::ComInterface(). Implemented by the host, which must bear calls from several threads at once. The order
// of the operations is part of the contract.
class OTX_API IComInterface {
public:
    virtual void ActivateEthernet() = 0;
    virtual void DeactivateEthernet() = 0;
    virtual bool IsEthernetActivated() = 0;
    virtual COtxValue GetComInterfaceNameListFromEthernet(const std::string& option) = 0;
    virtual bool IsInterfaceConnected() = 0;
    virtual COtxValue GetComInterfaceProperties() = 0;
    virtual COtxValue GetComInterfaceResourceNameList() = 0;
    // In volts.
    virtual double GetBatteryVoltage() = 0;
    virtual bool GetIgnitionState(std::int64_t pin) = 0;
    virtual void CloseComInterface() = 0;

protected:
    ~IComInterface() = default;
};

}  // namespace OTX
