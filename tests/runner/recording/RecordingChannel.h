// A communication channel.
#pragma once

#include "Handle.h"
#include "Services.h"

#include <otx/diag/IComChannel.h>

namespace documents {

// Labelled with its identifier.
class RecordingChannel : public Handle, public OTX::IComChannel {
public:
    RecordingChannel(CallRecorder& recorder, Services& services, std::string label)
        : Handle(recorder, std::move(label), OTX::ValueType::ComChannel), services_(services) {}

    OTX::IComChannel& ComChannel() override { return *this; }

    void CloseComChannel() override;
    COtxValue CreateDiagServiceByName(const COtxValue& name) override;
    COtxValue CreateDiagServiceBySemantic(const COtxValue& semantic) override;
    COtxValue GetDiagServiceListBySemantic(const COtxValue& semantic) override;
    void IdentifyAndSelectVariant() override;
    COtxValue GetComChannelEcuVariantName() override;
    COtxValue IsVariant() override;
    void SetComParameter(const COtxValue& name, const COtxValue& value) override;
    COtxValue GetComParameterValue(const COtxValue& name, OTX::ValueType type) override;
    COtxValue GetDefaultComParameterValue(const COtxValue& name, OTX::ValueType type) override;
    COtxValue ExecuteHexDiagService(const COtxValue& request, bool wantResponse) override;
    COtxValue ExecuteHexDiagServiceFunctional(const COtxValue& request) override;
    void SetComplexComParameter(const COtxValue& parameter) override;
    COtxValue GetComplexComParameter(const COtxValue& name) override;
    COtxValue GetDefaultComplexComParameter(const COtxValue& name) override;
    COtxValue GetComChannelState() override;
    void StartCommunication() override;
    void StopCommunication() override;

private:
    COtxValue service(const std::string& name) const { return services_.create(recorder(), name, label()); }
    COtxValue comParameter(const COtxValue& name) const;

    Services& services_;
};

}  // namespace documents
