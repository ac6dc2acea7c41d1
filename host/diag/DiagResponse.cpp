// One response, as a sequence sees it.
#include "diag/DiagResponse.h"

#include "diag/Described.h"
#include "diag/UdsProtocol.h"
#include "diag/UdsText.h"

#include <otx/value/COtxByteField.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxString.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace velkotx::host {

namespace {

bool fits(const MessageDescription& description, const Bytes& bytes) {
    const Bytes& prefix = description.prefix;
    if (bytes.size() < prefix.size() || !std::equal(prefix.begin(), prefix.end(), bytes.begin()))
        return false;
    return !hasConstants(description.parameters) || ResponseParameters(description, bytes).constantsFit();
}

const MessageDescription* find(const std::vector<MessageDescription>& descriptions, const Bytes& bytes) {
    const auto found = std::find_if(descriptions.begin(), descriptions.end(),
                                    [&](const MessageDescription& candidate) { return fits(candidate, bytes); });
    return found == descriptions.end() ? nullptr : &*found;
}

std::shared_ptr<const MessageDescription> nothingKnown() {
    static const auto description = std::make_shared<const MessageDescription>();
    return description;
}

bool isNegative(const Bytes& bytes) { return !bytes.empty() && bytes[0] == uds::negativeResponse; }

COtxResponseState::ResponseState stateOf(const Bytes& bytes) {
    return isNegative(bytes) ? COtxResponseState::Negative : COtxResponseState::Positive;
}

}  // namespace

DiagResponse::DiagResponse(std::shared_ptr<ResponseParameters> parameters, std::string name, std::string controlUnit,
                           Clock::Time time, COtxResponseState::ResponseState state)
    : COtxValueBehaviour(OTX::ValueType::Response),
      parameters_(std::move(parameters)),
      container_(parameters_, ParameterTree::root),
      name_(std::move(name)),
      controlUnit_(std::move(controlUnit)),
      time_(time),
      state_(state) {}

COtxValue DiagResponse::GetComChannelIdentifier() const { return COtxString(controlUnit_); }
COtxValue DiagResponse::GetResponseName() const { return COtxString(name_); }
COtxValue DiagResponse::GetResponseState() const { return COtxResponseState(state_); }
COtxValue DiagResponse::GetResponseTimestamp() const { return COtxInt(time_.count()); }
COtxValue DiagResponse::GetPdu() { return COtxByteField(parameters_->bytes()); }

std::shared_ptr<DiagResponse> makeResponse(const std::shared_ptr<const ServiceDescription>& service,
                                           ReceivedPdu&& received) {
    const auto& candidates = isNegative(received.bytes) ? service->negative : service->positive;
    if (const MessageDescription* const found = find(candidates, received.bytes)) {
        const auto state = stateOf(received.bytes);
        return std::make_shared<DiagResponse>(
            makeDescribed<ResponseParameters>(std::shared_ptr<const MessageDescription>(service, found), std::move(received.bytes)),
            found->name, std::move(received.controlUnit), received.time, state);
    }
    const auto description = candidates.empty()
                                 ? nothingKnown()
                                 : std::shared_ptr<const MessageDescription>(service, &candidates.front());
    const std::string flaw = "the response fits no description of '" + service->name + "': " + hexText(received.bytes);
    return std::make_shared<DiagResponse>(makeDescribed<ResponseParameters>(description, std::move(received.bytes), flaw),
                                          description->name, std::move(received.controlUnit), received.time,
                                          COtxResponseState::Invalid);
}

std::shared_ptr<DiagResponse> makeRawResponse(ReceivedPdu&& received) {
    const auto state = stateOf(received.bytes);
    return std::make_shared<DiagResponse>(makeDescribed<ResponseParameters>(nothingKnown(), std::move(received.bytes)), std::string(),
                                          std::move(received.controlUnit), received.time, state);
}

}  // namespace velkotx::host
