// The host's way to the control units of a vehicle.
#pragma once

#include <otx/Export.h>
#include <otx/value/COtxValue.h>

#include <memory>

namespace ComInterface {
class IPduComInterface;
}

// Implemented by the host and handed to velkotx::Sequencer::SetDiagCom. Lanes of a run call it at once; no lock of the
// sequencer is held meanwhile. Arguments are lent for the call. Failures are COtxExceptions (kinds 7 to 15), which pass
// through the term unchanged. The order of the operations is part of the contract, reserved places included.
class OTX_API DiagComHost {
public:
    virtual void Reserved1() {}
    virtual void Reserved2() {}
    // A value of type ComChannel. An empty variant name stands for none; the terms' values come as they are.
    virtual COtxValue GetComChannel(const COtxValue& identifier, const COtxValue& ecuVariantName,
                                    const COtxValue& performVariantSelection) = 0;
    // The interface is null if the document's value wasn't one of these.
    virtual COtxValue GetComChannelFromComInterface(const std::shared_ptr<ComInterface::IPduComInterface>& comInterface,
                                                    const COtxValue& identifier, const COtxValue& ecuVariantName,
                                                    const COtxValue& performVariantSelection) = 0;
    virtual COtxValue CreateComChannel(const COtxValue& identifier, const COtxValue& ecuVariantName) = 0;
    virtual COtxValue CreateComChannelFromComInterface(const std::shared_ptr<ComInterface::IPduComInterface>& comInterface,
                                                       const COtxValue& identifier, const COtxValue& ecuVariantName) = 0;

    virtual ~DiagComHost() = default;
};
