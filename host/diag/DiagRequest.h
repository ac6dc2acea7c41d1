// The request of a service, as a sequence sees it.
#pragma once

#include "diag/ParameterContainer.h"
#include "diag/RequestParameters.h"

#include <otx/diag/IMessage.h>
#include <otx/diag/IRequest.h>
#include <otx/value/COtxValueBehaviour.h>

#include <memory>

namespace velkotx::host {

// Behind values of type Request. Any thread; each operation sees the request as a whole.
class DiagRequest final : public COtxValueBehaviour, public OTX::IRequest, public OTX::IMessage {
public:
    // The description is kept.
    explicit DiagRequest(std::shared_ptr<const MessageDescription> description);

    OTX::IRequest& Request() override { return *this; }
    OTX::IMessage& IMessage() override { return *this; }
    OTX::IParameterContainer& Container() override { return container_; }
    bool IsContainer() const override { return true; }
    COtxValue ToString() override;

    void SetPdu(const COtxValue& pdu) override;
    COtxValue GetPdu() override;

    // As it is to be sent. Throws as RequestParameters::pdu does.
    Bytes bytes() const { return parameters_->pdu(); }

private:
    const std::shared_ptr<const MessageDescription> description_;
    const std::shared_ptr<RequestParameters> parameters_;
    ParameterContainer container_;
};

}  // namespace velkotx::host
