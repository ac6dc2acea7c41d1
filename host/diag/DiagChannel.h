// A communication channel, as a sequence sees it.
#pragma once

#include "diag/ComParameters.h"
#include "diag/ServiceCatalogue.h"
#include "diag/UdsChannel.h"

#include <vehicle/VehicleDescription.h>

#include <otx/diag/IComChannel.h>
#include <otx/value/COtxValueBehaviour.h>

#include <memory>
#include <mutex>
#include <string>

namespace velkotx::host {

// Whom a channel leads to: a control unit, or a functional group.
struct ChannelTarget {
    std::shared_ptr<const VehicleDescription> vehicle;
    std::string name;
    const ControlUnitDescription* unit;  // of the vehicle; null for a group
};

// Behind values of type ComChannel. Any thread. What is sent to a group is functionally addressed.
class DiagChannel final : public COtxValueBehaviour, public OTX::IComChannel {
public:
    DiagChannel(ChannelTarget target, std::shared_ptr<UdsChannel> channel);

    OTX::IComChannel& ComChannel() override { return *this; }
    COtxValue ToString() override;

    // Throws kind 8: there is none of that name. The empty name is that of no variant.
    void selectVariant(const std::string& name);
    std::string variantName() const;
    bool isClosed() const;

    void CloseComChannel() override;
    COtxValue CreateDiagServiceByName(const COtxValue& name) override;
    COtxValue CreateDiagServiceBySemantic(const COtxValue& semantic) override;
    COtxValue GetDiagServiceListBySemantic(const COtxValue& semantic) override;
    // Services that were created before stay as they are. Throws kind 7 when no variant fits: the channel stands where it
    // stood.
    void IdentifyAndSelectVariant() override;
    // Empty when the channel stands on no variant.
    COtxValue GetComChannelEcuVariantName() override;
    COtxValue IsVariant() override;
    void SetComParameter(const COtxValue& name, const COtxValue& value) override;
    COtxValue GetComParameterValue(const COtxValue& name, OTX::ValueType type) override;
    COtxValue GetDefaultComParameterValue(const COtxValue& name, OTX::ValueType type) override;
    // A Response, negative ones included. Without a wish for it, silence is no failure, and the answer is the empty value.
    // A suppressed positive response is a Response without bytes.
    COtxValue ExecuteHexDiagService(const COtxValue& request, bool wantResponse) override;
    // Empty when nobody answered.
    COtxValue ExecuteHexDiagServiceFunctional(const COtxValue& request) override;
    void SetComplexComParameter(const COtxValue& parameter) override;
    COtxValue GetComplexComParameter(const COtxValue& name) override;
    COtxValue GetDefaultComplexComParameter(const COtxValue& name) override;
    COtxValue GetComChannelState() override;
    // Throws kind 12 on a closed channel, kind 14 when the transport doesn't know the control unit, and kind 15 when the
    // link can't be opened.
    void StartCommunication() override;
    void StopCommunication() override;

private:
    using Catalogue = std::shared_ptr<const ServiceCatalogue>;

    void select(const VariantDescription* variant);
    Catalogue catalogue() const;
    COtxValue create(const ServiceCatalogue::Service& service) const;
    UdsOutcome execute(const COtxValue& request, bool functional);

    const ChannelTarget target_;
    const std::shared_ptr<UdsChannel> channel_;
    ComParameters comParameters_;
    // Makes setting and taking over one step.
    std::mutex timingLock_;
    // Guards variant_ and catalogue_.
    mutable std::mutex variantLock_;
    const VariantDescription* variant_ = nullptr;
    Catalogue catalogue_;
};

}  // namespace velkotx::host
