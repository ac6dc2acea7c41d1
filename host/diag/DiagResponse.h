// One response, as a sequence sees it.
#pragma once

#include "diag/ParameterContainer.h"
#include "diag/ResponseParameters.h"

#include <transport/Transport.h>

#include <otx/diag/IMessage.h>
#include <otx/diag/IResponse.h>
#include <otx/value/COtxResponseState.h>
#include <otx/value/COtxValueBehaviour.h>

#include <memory>
#include <string>

namespace velkotx::host {

// Behind values of type Response. Never changes; any thread.
class DiagResponse final : public COtxValueBehaviour, public OTX::IResponse, public OTX::IMessage {
public:
    // The description must outlive the parameters, which `parameters` may see to by what it shares.
    DiagResponse(std::shared_ptr<ResponseParameters> parameters, std::string name, std::string controlUnit,
                 Clock::Time time, COtxResponseState::ResponseState state);

    const OTX::IResponse& IResponse() const override { return *this; }
    OTX::IMessage& IMessage() override { return *this; }
    OTX::IParameterContainer& Container() override { return container_; }
    bool IsContainer() const override { return true; }
    COtxValue ToString() override { return GetResponseName(); }

    // The control unit that answered.
    COtxValue GetComChannelIdentifier() const override;
    COtxValue GetResponseName() const override;
    COtxValue GetResponseState() const override;
    // An Integer: microseconds of the transport's clock.
    COtxValue GetResponseTimestamp() const override;
    bool IsPositive() const override { return state_ == COtxResponseState::Positive; }

    COtxValue GetPdu() override;

    COtxResponseState::ResponseState state() const noexcept { return state_; }

private:
    const std::shared_ptr<ResponseParameters> parameters_;
    ParameterContainer container_;
    const std::string name_;
    const std::string controlUnit_;
    const Clock::Time time_;
    const COtxResponseState::ResponseState state_;
};

// The response of a service: the first of its descriptions whose prefix and constants fit, as far as the bytes go. What
// fits none is Invalid; it goes by the name of the first one, and its parameters tell so when they are read.
std::shared_ptr<DiagResponse> makeResponse(const std::shared_ptr<const ServiceDescription>& service,
                                           ReceivedPdu&& received);
// A response that nothing is known of but its bytes.
std::shared_ptr<DiagResponse> makeRawResponse(ReceivedPdu&& received);

}  // namespace velkotx::host
