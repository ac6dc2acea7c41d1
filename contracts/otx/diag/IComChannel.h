// A communication channel to an ECU.
#pragma once

#include <otx/Export.h>
#include <otx/value/ValueType.h>

class COtxValue;

namespace OTX {

// Behind COtxValue::ComChannel(). Implemented by the host, which must bear calls from several threads at once and reports
// failures as COtxException. Arguments are lent for the call. The order of the operations is part of the contract.
class OTX_API IComChannel {
public:
    virtual void CloseComChannel() = 0;
    // A value of type DiagService.
    virtual COtxValue CreateDiagServiceByName(const COtxValue& name) = 0;
    virtual COtxValue CreateDiagServiceBySemantic(const COtxValue& semantic) = 0;
    // A List.
    virtual COtxValue GetDiagServiceListBySemantic(const COtxValue& semantic) = 0;
    virtual void IdentifyAndSelectVariant() = 0;
    // A String: the variant that the channel stands on.
    virtual COtxValue GetComChannelEcuVariantName() = 0;
    virtual void Reserved7() {}
    // A Boolean.
    virtual COtxValue IsVariant() = 0;
    virtual void SetComParameter(const COtxValue& name, const COtxValue& value) = 0;
    // A value of the type asked for.
    virtual COtxValue GetComParameterValue(const COtxValue& name, ValueType type) = 0;
    virtual COtxValue GetDefaultComParameterValue(const COtxValue& name, ValueType type) = 0;
    // Sends raw bytes; a message when a response is wanted.
    virtual COtxValue ExecuteHexDiagService(const COtxValue& request, bool wantResponse) = 0;
    // The same, functionally addressed; a List of responses.
    virtual COtxValue ExecuteHexDiagServiceFunctional(const COtxValue& request) = 0;
    virtual void SetComplexComParameter(const COtxValue& parameter) = 0;
    virtual COtxValue GetComplexComParameter(const COtxValue& name) = 0;
    virtual COtxValue GetDefaultComplexComParameter(const COtxValue& name) = 0;
    // A COtxComChannelState.
    virtual COtxValue GetComChannelState() = 0;
    virtual void StartCommunication() = 0;
    virtual void StopCommunication() = 0;

protected:
    ~IComChannel() = default;
};

}  // namespace OTX
