// One repeated execution of a service, from start to stop.
#pragma once

#include "diag/ServiceExecution.h"
#include "diag/UdsChannel.h"

#include <atomic>
#include <memory>
#include <optional>

namespace velkotx::host {

// Owned by the service while the repetition goes on; what is on its way holds it too.
class ServiceCycle final : public UdsTimed, public UdsClient, public std::enable_shared_from_this<ServiceCycle> {
public:
    ServiceCycle(const std::shared_ptr<ServiceExecution>& service, Clock::Time first)
        : service_(service), next_(first) {}

    // Executes the service, unless the last execution still runs. A cycle that comes too late is left out.
    std::optional<Clock::Time> due(Clock::Time now) override;
    void completed(UdsOutcome&& outcome) override;

private:
    void execute(ServiceExecution& service);

    const std::weak_ptr<ServiceExecution> service_;
    Clock::Time next_;
    std::atomic<bool> running_{false};
};

}  // namespace velkotx::host
