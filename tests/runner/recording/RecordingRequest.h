// The request of a service.
#pragma once

#include "Container.h"
#include "Handle.h"

#include <otx/diag/IMessage.h>
#include <otx/diag/IRequest.h>

namespace documents {

class RecordingRequest : public Handle, public OTX::IRequest, public OTX::IMessage {
public:
    RecordingRequest(CallRecorder& recorder, std::string label);

    OTX::IRequest& Request() override { return *this; }
    OTX::IMessage& IMessage() override { return *this; }
    bool IsContainer() const override { return true; }
    OTX::IParameterContainer& Container() override { return container_; }

    void SetPdu(const COtxValue& pdu) override;
    COtxValue GetPdu() override;

private:
    documents::Container container_;
};

}  // namespace documents
