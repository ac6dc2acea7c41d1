// A service of a channel: its request, its executions and their results.
#pragma once

#include "diag/DiagRequest.h"
#include "diag/ServiceResults.h"
#include "diag/UdsChannel.h"

#include <vehicle/ServiceDescription.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

namespace velkotx::host {

class ServiceCycle;

// Shared by the handles on the service, its results and what is on its way. Any thread.
class ServiceExecution final : public UdsClient, public std::enable_shared_from_this<ServiceExecution> {
public:
    ServiceExecution(std::shared_ptr<UdsChannel> channel, std::shared_ptr<const ServiceDescription> service,
                     bool functional);
    ~ServiceExecution() override;

    const std::string& name() const noexcept { return service_->name; }
    const std::shared_ptr<DiagRequest>& request() const noexcept { return request_; }
    ServiceResults& results() noexcept { return results_; }

    void start(bool suppressPositiveResponse);
    void startRepetition();
    void stopRepetition();
    Clock::Duration repetitionTime() const noexcept { return repetitionTime_; }
    void setRepetitionTime(Clock::Duration time) noexcept { repetitionTime_ = time; }

    void completed(UdsOutcome&& outcome) override;

private:
    friend class ServiceCycle;

    ServiceResults::Result resultOf(UdsOutcome&& outcome) const;
    void end(const ServiceCycle& cycle);

    const std::shared_ptr<UdsChannel> channel_;
    const std::shared_ptr<const ServiceDescription> service_;
    const bool functional_;
    const std::shared_ptr<DiagRequest> request_;
    ServiceResults results_;
    std::atomic<Clock::Duration> repetitionTime_;
    // Guards cycle_.
    std::mutex cycleLock_;
    // Of a repeated execution that goes on.
    std::shared_ptr<ServiceCycle> cycle_;
};

}  // namespace velkotx::host
