// Beginning and ending the threads of services.
#include "ServiceThreads.h"

#include <otx/value/COtxException.h>
#include <pthread.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <system_error>
#include <utility>

#include "Stated.h"

namespace otx {

namespace {

using ExternalServiceProvider::ServiceWork;
using OTX::Exceptions_e;

// Puts the cancellation of the calling thread off: a destructor that waits must not be unwound.
class CancellationPutOff {
public:
    CancellationPutOff() { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before_); }
    ~CancellationPutOff() { pthread_setcancelstate(before_, nullptr); }
    CancellationPutOff(const CancellationPutOff&) = delete;
    CancellationPutOff& operator=(const CancellationPutOff&) = delete;

private:
    int before_ = PTHREAD_CANCEL_ENABLE;
};

// Tells the end of a service whatever ended it, the cancellation of its thread included.
class End {
public:
    explicit End(Service& service) : service_(service) {}
    End(const End&) = delete;
    End& operator=(const End&) = delete;
    ~End() {
        const CancellationPutOff whole;
        if (!result) result = COtxException(Exceptions_e::ProviderServiceException, "The thread of the service was ended");
        service_.finish(*result);
    }

    std::optional<COtxValue> result;

private:
    Service& service_;
};

COtxValue resultOf(const ServiceWork& work, const Service& service) {
    try {
        stated(Exceptions_e::ProviderServiceException, "Service", [&] { work(service.token()); });
        return {};
    } catch (const COtxValue& failure) {
        return failure;
    }
}

void serve(const std::shared_ptr<Service>& service, ServiceWork work) {
    {
        End end(*service);
        COtxValue result = resultOf(work, *service);
        // What the work holds is free when the end is told.
        work = nullptr;
        end.result = std::move(result);
    }
    service->hasLeft = true;
}

}  // namespace

ServiceThreads::~ServiceThreads() { end(); }

std::shared_ptr<Service> ServiceThreads::start(ServiceWork work, std::shared_ptr<const void> owner) {
    joinThoseThatLeft();
    auto service = std::make_shared<Service>();
    const std::lock_guard guard(threadsLock_);
    if (hasEnded_) return nullptr;
    running_.reserve(running_.size() + 1);
    try {
        std::thread thread([service, kept = std::move(owner), mine = std::move(work)]() mutable {
            serve(service, std::move(mine));
        });
        running_.push_back({service, std::move(thread)});
    } catch (const std::system_error& failure) {
        throw COtxException(Exceptions_e::ProviderServiceException,
                            std::string("No thread for the service: ") + failure.what());
    }
    return service;
}

void ServiceThreads::end() {
    std::vector<Running> ended;
    {
        const std::lock_guard guard(threadsLock_);
        hasEnded_ = true;
        ended.swap(running_);
    }
    const CancellationPutOff whole;
    for (const Running& one : ended) one.service->terminate();
    for (Running& one : ended) {
        // It goes on without us; all that it uses is its own.
        if (one.thread.get_id() == std::this_thread::get_id())
            one.thread.detach();
        else
            one.thread.join();
    }
}

void ServiceThreads::joinThoseThatLeft() {
    std::vector<Running> left;
    {
        const std::lock_guard guard(threadsLock_);
        const auto first = std::partition(running_.begin(), running_.end(),
                                          [](const Running& one) { return !one.service->hasLeft; });
        std::move(first, running_.end(), std::back_inserter(left));
        running_.erase(first, running_.end());
    }
    const CancellationPutOff whole;
    for (Running& one : left) one.thread.join();
}

}  // namespace otx
