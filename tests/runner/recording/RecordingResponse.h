// A response.
#pragma once

#include "Container.h"
#include "Handle.h"

#include <otx/diag/IMessage.h>
#include <otx/diag/IResponse.h>

namespace documents {

// The one that is named "R2" is negative, all others are positive. The type is that of the value: one that answers as a
// response does, but isn't of that type, is what a sequence must refuse.
class RecordingResponse : public Handle, public OTX::IResponse, public OTX::IMessage {
public:
    RecordingResponse(CallRecorder& recorder, std::string label, std::string channel, std::string name,
                      OTX::ValueType type = OTX::ValueType::Response);

    const OTX::IResponse& IResponse() const override { return *this; }
    OTX::IMessage& IMessage() override { return *this; }
    bool IsContainer() const override { return true; }
    OTX::IParameterContainer& Container() override { return container_; }

    COtxValue GetComChannelIdentifier() const override;
    COtxValue GetResponseName() const override;
    COtxValue GetResponseState() const override;
    COtxValue GetResponseTimestamp() const override;
    bool IsPositive() const override;
    COtxValue GetPdu() override;

private:
    bool isNegative() const { return name_ == "R2"; }

    const std::string channel_;
    const std::string name_;
    documents::Container container_;
};

}  // namespace documents
