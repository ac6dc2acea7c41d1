// A communication channel, as a sequence sees it.
#include "diag/DiagChannel.h"

#include "diag/BlockingRequest.h"
#include "diag/ChannelState.h"
#include "diag/DiagFailure.h"
#include "diag/DiagResponse.h"
#include "diag/DiagResult.h"
#include "diag/DiagServiceHandle.h"
#include "diag/VariantIdentification.h"

#include <otx/value/COtxBool.h>
#include <otx/value/COtxComChannelState.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxString.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace velkotx::host {

using OTX::Exceptions_e;

namespace {

const std::vector<ComParameterDescription>& comParametersOf(const ChannelTarget& target) {
    return target.unit != nullptr ? target.unit->comParameters : target.vehicle->comParameters;
}

}  // namespace

DiagChannel::DiagChannel(ChannelTarget target, std::shared_ptr<UdsChannel> channel)
    : COtxValueBehaviour(OTX::ValueType::ComChannel),
      target_(std::move(target)),
      channel_(std::move(channel)),
      comParameters_(comParametersOf(target_)) {
    channel_->setTiming(comParameters_.timing());
    select(nullptr);
}

COtxValue DiagChannel::ToString() { return COtxString(target_.name); }

void DiagChannel::select(const VariantDescription* variant) {
    auto catalogue = target_.unit != nullptr
                         ? std::make_shared<const ServiceCatalogue>(target_.vehicle, *target_.unit, variant)
                         : std::make_shared<const ServiceCatalogue>(target_.vehicle, target_.name);
    const std::lock_guard guard(variantLock_);
    variant_ = variant;
    catalogue_.swap(catalogue);
}

void DiagChannel::selectVariant(const std::string& name) {
    if (name.empty())
        return select(nullptr);
    if (target_.unit != nullptr) {
        for (const VariantDescription& variant : target_.unit->variants) {
            if (variant.name == name)
                return select(&variant);
        }
    }
    fail(Exceptions_e::UnknownTargetException, "'" + target_.name + "' has no variant '" + name + "'");
}

std::string DiagChannel::variantName() const {
    const std::lock_guard guard(variantLock_);
    return variant_ == nullptr ? std::string() : variant_->name;
}

bool DiagChannel::isClosed() const { return channel_->state() == UdsChannel::State::Closed; }

DiagChannel::Catalogue DiagChannel::catalogue() const {
    const std::lock_guard guard(variantLock_);
    return catalogue_;
}

COtxValue DiagChannel::create(const ServiceCatalogue::Service& service) const {
    const bool functional = service->functional || target_.unit == nullptr;
    return makeService(std::make_shared<ServiceExecution>(channel_, service, functional));
}

void DiagChannel::CloseComChannel() { channel_->close(); }

COtxValue DiagChannel::CreateDiagServiceByName(const COtxValue& name) {
    return create(catalogue()->byName(name.String()));
}

COtxValue DiagChannel::CreateDiagServiceBySemantic(const COtxValue& semantic) {
    return create(catalogue()->bySemantic(semantic.String()));
}

COtxValue DiagChannel::GetDiagServiceListBySemantic(const COtxValue& semantic) {
    std::vector<COtxValue> services;
    for (const auto& service : catalogue()->allBySemantic(semantic.String()))
        services.push_back(create(service));
    return COtxList(std::move(services));
}

void DiagChannel::IdentifyAndSelectVariant() {
    requireCommunication(*channel_);
    if (target_.unit == nullptr)
        fail(Exceptions_e::DiagComException, "the group '" + target_.name + "' has no variants");
    if (target_.unit->variants.empty())
        fail(Exceptions_e::DiagComException, "'" + target_.name + "' has no variants");
    const IdentifiedVariant found = identifyVariant(*channel_, *target_.unit);
    if (found.variant == nullptr)
        fail(Exceptions_e::DiagComException, "'" + target_.name + "' is none of its variants: " + found.why);
    select(found.variant);
}

COtxValue DiagChannel::GetComChannelEcuVariantName() { return COtxString(variantName()); }

COtxValue DiagChannel::IsVariant() {
    const std::lock_guard guard(variantLock_);
    return COtxBool(variant_ != nullptr);
}

void DiagChannel::SetComParameter(const COtxValue& name, const COtxValue& value) {
    const std::lock_guard guard(timingLock_);
    comParameters_.set(name, value);
    channel_->setTiming(comParameters_.timing());
}

COtxValue DiagChannel::GetComParameterValue(const COtxValue& name, OTX::ValueType type) {
    return comParameters_.value(name, type);
}

COtxValue DiagChannel::GetDefaultComParameterValue(const COtxValue& name, OTX::ValueType type) {
    return comParameters_.defaultValue(name, type);
}

void DiagChannel::SetComplexComParameter(const COtxValue& parameter) { comParameters_.setComplex(parameter); }
COtxValue DiagChannel::GetComplexComParameter(const COtxValue& name) { return comParameters_.complex(name); }

COtxValue DiagChannel::GetDefaultComplexComParameter(const COtxValue& name) {
    return comParameters_.defaultComplex(name);
}

UdsOutcome DiagChannel::execute(const COtxValue& request, bool functional) {
    const COtxValue field = request.ToByteField();
    const std::vector<unsigned char>& bytes = field.ByteField();
    if (bytes.empty())
        fail(Exceptions_e::DiagComException, "a request without bytes can't be sent");
    requireCommunication(*channel_);
    return executeAndWait(*channel_, {bytes, functional || target_.unit == nullptr});
}

COtxValue DiagChannel::ExecuteHexDiagService(const COtxValue& request, bool wantResponse) {
    UdsOutcome outcome = execute(request, false);
    const auto failure = failureOf(outcome, target_.name);
    if (failure && (wantResponse || outcome.end != UdsOutcome::End::Silent))
        fail(*failure);
    if (!wantResponse)
        return COtxValue();
    if (outcome.responses.empty())
        return COtxValue(makeRawResponse({target_.name, {}, channel_->clock().now()}));
    return COtxValue(makeRawResponse(std::move(outcome.responses.front())));
}

COtxValue DiagChannel::ExecuteHexDiagServiceFunctional(const COtxValue& request) {
    UdsOutcome outcome = execute(request, true);
    const auto failure = failureOf(outcome, target_.name);
    if (failure && outcome.end != UdsOutcome::End::Silent)
        fail(*failure);
    std::vector<COtxValue> responses;
    for (ReceivedPdu& received : outcome.responses)
        responses.emplace_back(makeRawResponse(std::move(received)));
    return COtxList(std::move(responses));
}

COtxValue DiagChannel::GetComChannelState() { return COtxComChannelState(stateOf(*channel_)); }

void DiagChannel::StartCommunication() {
    if (isClosed())
        requireCommunication(*channel_);
    try {
        channel_->start();
    } catch (const UnknownControlUnit& failure) {
        fail(Exceptions_e::UnknownComChannelException, failure.what());
    } catch (const TransportError& failure) {
        fail(Exceptions_e::LossOfComException, failure.what());
    }
}

void DiagChannel::StopCommunication() { channel_->stop(); }

}  // namespace velkotx::host
