// A service that a provider runs: what its handles and its thread share.
#pragma once

#include <otx/value/COtxValue.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <stop_token>
#include <vector>

namespace otx {

// Any thread.
class Service {
public:
    std::stop_token token() const { return stop_.get_token(); }
    // Asks the service to end. Whether it was running.
    bool terminate();
    bool isRunning() const;
    // A source of the calling thread's group that fires when the service ends.
    COtxValue newSource();

    // The service has ended: fires all sources with that value. Once, by the service's thread.
    void finish(const COtxValue& result);

    // Whether the thread has nothing left to do but to end.
    std::atomic<bool> hasLeft{false};

private:
    std::stop_source stop_;
    // Guards all below.
    mutable std::mutex serviceLock_;
    bool isRunning_ = true;
    COtxValue result_;
    // Held weakly: nobody has to be told who has dropped his source.
    std::vector<std::weak_ptr<COtxValueBehaviour>> sources_;
};

// The value of a service.
COtxValue makeHandle(std::shared_ptr<Service> service);

}  // namespace otx
