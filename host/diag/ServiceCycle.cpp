// One repeated execution of a service, from start to stop.
#include "diag/ServiceCycle.h"

#include "diag/DiagServiceHandle.h"

#include <utility>

namespace velkotx::host {

std::optional<Clock::Time> ServiceCycle::due(Clock::Time now) {
    const auto service = service_.lock();
    if (service == nullptr)
        return std::nullopt;
    // Read before the execution: a channel that closes behind it is found the next time, so that its end is always told.
    const bool open = service->channel_->state() == UdsChannel::State::Open;
    if (!running_.exchange(true))
        execute(*service);
    if (!open) {
        service->end(*this);
        return std::nullopt;
    }
    const Clock::Duration cycle = service->repetitionTime();
    next_ += cycle * ((now - next_) / cycle + 1);
    return next_;
}

void ServiceCycle::execute(ServiceExecution& service) {
    try {
        service.channel_->submit({service.request_->bytes(), service.functional_}, shared_from_this());
    } catch (const COtxValue& failure) {
        // The request has been changed to one that isn't complete.
        running_ = false;
        service.results_.append(makeFailedResult({failure.Exception().Kind(), failure.Exception().Text()}),
                                makeServiceOfEvent(service.shared_from_this()));
    }
}

void ServiceCycle::completed(UdsOutcome&& outcome) {
    running_ = false;
    if (const auto service = service_.lock())
        service->results_.append(service->resultOf(std::move(outcome)), makeServiceOfEvent(service));
}

}  // namespace velkotx::host
