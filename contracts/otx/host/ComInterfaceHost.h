// The host's vehicle communication interfaces.
#pragma once

#include <otx/Export.h>
#include <otx/host/CModuleList.h>
#include <otx/value/COtxValue.h>

#include <string>

// Implemented by the host and handed to velkotx::Sequencer::SetComInterface. Lanes of a run call it at once; no lock of the
// sequencer is held meanwhile. Failures are COtxExceptions (kinds 30 to 34). The order of the operations is part of the
// contract, reserved places included.
class OTX_API ComInterfaceHost {
public:
    virtual void Reserved1() {}
    virtual void Reserved2() {}
    virtual void Reserved3() {}
    virtual void Reserved4() {}
    // The status is the number of a connection status (0 connected, 1 the current one, 2 not connected), -1 for any.
    virtual ComInterface::CModuleList GetModuleList(int connectionStatus) = 0;
    virtual std::string GetDefaultComInterfaceName() = 0;
    virtual void Reserved7() {}
    // A value of type ComInterface.
    virtual COtxValue GetComInterface(const std::string& name) = 0;

    virtual ~ComInterfaceHost() = default;
};
