// The host's way to the control units of a described vehicle.
#pragma once

#include "diag/DiagChannel.h"
#include "diag/PduTrace.h"

#include <transport/Transport.h>
#include <vehicle/VehicleDescription.h>

#include <otx/host/DiagComHost.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace velkotx::host {

// Identifiers are names of control units and functional groups. GetComChannel gives the channel to a target that is there
// already, if it is open and stands on the variant asked for (any will do when none is named), else a new one in
// communication. CreateComChannel makes a new one each time, in the state CREATED. Any thread.
class VehicleDiagCom final : public DiagComHost {
public:
    // A trace may be missing.
    VehicleDiagCom(std::shared_ptr<const VehicleDescription> vehicle, std::shared_ptr<Transport> transport,
                   std::shared_ptr<PduTrace> trace);

    // Throws kind 14 for an unknown identifier, kind 8 for an unknown variant, and as IdentifyAndSelectVariant and
    // StartCommunication do.
    COtxValue GetComChannel(const COtxValue& identifier, const COtxValue& ecuVariantName,
                            const COtxValue& performVariantSelection) override;
    COtxValue CreateComChannel(const COtxValue& identifier, const COtxValue& ecuVariantName) override;
    // The same, on an interface that is one of this host's and open: else they throw kind 14 or 34. The transport is the
    // one that the host has, whatever the interface is.
    COtxValue GetComChannelFromComInterface(const std::shared_ptr<ComInterface::IPduComInterface>& comInterface,
                                            const COtxValue& identifier, const COtxValue& ecuVariantName,
                                            const COtxValue& performVariantSelection) override;
    COtxValue CreateComChannelFromComInterface(const std::shared_ptr<ComInterface::IPduComInterface>& comInterface,
                                               const COtxValue& identifier, const COtxValue& ecuVariantName) override;

private:
    using Channel = std::shared_ptr<DiagChannel>;

    ChannelTarget target(const std::string& identifier) const;
    Channel create(const COtxValue& identifier, const COtxValue& ecuVariantName) const;
    Channel known(const std::string& identifier, const std::string& ecuVariantName) const;
    Channel open(const COtxValue& identifier, const COtxValue& ecuVariantName);

    const std::shared_ptr<const VehicleDescription> vehicle_;
    const std::shared_ptr<Transport> transport_;
    const std::shared_ptr<PduTrace> trace_;
    // Guards channels_.
    mutable std::mutex channelsLock_;
    // The newest that GetComChannel made, by identifier.
    std::map<std::string, std::weak_ptr<DiagChannel>> channels_;
};

}  // namespace velkotx::host
