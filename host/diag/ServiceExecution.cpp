// A service of a channel: its request, its executions and their results.
#include "diag/ServiceExecution.h"

#include "diag/ChannelState.h"
#include "diag/DiagServiceHandle.h"
#include "diag/ServiceCycle.h"
#include "diag/UdsProtocol.h"

#include <chrono>
#include <exception>
#include <utility>

namespace velkotx::host {

using OTX::Exceptions_e;

namespace {

// The same with a count of its own: responses keep their description, and lanes would meet at the vehicle's one count.
std::shared_ptr<const ServiceDescription> countedApart(std::shared_ptr<const ServiceDescription> service) {
    const auto own = std::make_shared<const std::shared_ptr<const ServiceDescription>>(std::move(service));
    return {own, own->get()};
}

}  // namespace

ServiceExecution::ServiceExecution(std::shared_ptr<UdsChannel> channel,
                                   std::shared_ptr<const ServiceDescription> service, bool functional)
    : channel_(std::move(channel)),
      service_(countedApart(std::move(service))),
      functional_(functional),
      request_(std::make_shared<DiagRequest>(
          std::shared_ptr<const MessageDescription>(service_, &service_->request))),
      repetitionTime_(std::chrono::seconds(1)) {}

ServiceExecution::~ServiceExecution() = default;

void ServiceExecution::start(bool suppressPositiveResponse) {
    Pdu pdu = request_->bytes();
    if (suppressPositiveResponse && pdu.size() > 1 && uds::hasSubfunction(pdu[0]))
        pdu[1] |= uds::suppressPositive;
    requireCommunication(*channel_);
    {
        const std::lock_guard guard(cycleLock_);
        if (cycle_ != nullptr)
            fail(Exceptions_e::InvalidStateException, "'" + name() + "' is being executed repeatedly");
    }
    results_.begin();
    try {
        channel_->submit({std::move(pdu), functional_}, shared_from_this());
    } catch (const std::exception&) {
        results_.abandon();
        throw;
    }
}

void ServiceExecution::completed(UdsOutcome&& outcome) {
    const bool refused = outcome.end == UdsOutcome::End::Crowded;
    const auto result = resultOf(std::move(outcome));
    if (refused)
        results_.refuse(result, makeServiceOfEvent(shared_from_this()));
    else
        results_.end(result, makeServiceOfEvent(shared_from_this()));
}

ServiceResults::Result ServiceExecution::resultOf(UdsOutcome&& outcome) const {
    try {
        return makeResult(service_, std::move(outcome), channel_->name());
    } catch (const std::exception& failure) {
        return makeFailedResult({Exceptions_e::DiagComException, failure.what()});
    }
}

void ServiceExecution::startRepetition() {
    requireCommunication(*channel_);
    // So that a request that isn't complete is told here.
    request_->bytes();
    const Clock::Time now = channel_->clock().now();
    auto cycle = std::make_shared<ServiceCycle>(shared_from_this(), now);
    {
        const std::lock_guard guard(cycleLock_);
        if (cycle_ != nullptr)
            fail(Exceptions_e::InvalidStateException, "'" + name() + "' is being executed repeatedly already");
        cycle_ = cycle;
    }
    if (channel_->schedule(now, cycle))
        return;
    end(*cycle);
    requireCommunication(*channel_);
    fail(Exceptions_e::DiagComException, "there is no thread to be had for the repeated execution of '" + name() + "'");
}

void ServiceExecution::stopRepetition() {
    std::shared_ptr<ServiceCycle> ended;
    const std::lock_guard guard(cycleLock_);
    ended.swap(cycle_);
}

void ServiceExecution::end(const ServiceCycle& cycle) {
    std::shared_ptr<ServiceCycle> ended;
    const std::lock_guard guard(cycleLock_);
    if (cycle_.get() == &cycle)
        ended.swap(cycle_);
}

}  // namespace velkotx::host
