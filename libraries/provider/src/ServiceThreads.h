// The threads on which a provider's services run.
#pragma once

#include <otx/provider/Provider.h>

#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "Service.h"

namespace otx {

// Any thread. The destructor ends all services, as end() does.
class ServiceThreads {
public:
    ServiceThreads() = default;
    ServiceThreads(const ServiceThreads&) = delete;
    ServiceThreads& operator=(const ServiceThreads&) = delete;
    ~ServiceThreads();

    // Begins the work; its thread keeps the owner alive. Null after end(). Throws kind 22 (ProviderServiceException) when
    // the system gives no thread.
    std::shared_ptr<Service> start(ExternalServiceProvider::ServiceWork work, std::shared_ptr<const void> owner);

    // Asks all services to end and waits for them, but not for the one on whose thread it is called. Nothing starts
    // afterwards. The calling thread isn't cancelled meanwhile.
    void end();

private:
    struct Running {
        std::shared_ptr<Service> service;
        std::thread thread;
    };

    void joinThoseThatLeft();

    // Guards all below.
    std::mutex threadsLock_;
    std::vector<Running> running_;
    bool hasEnded_ = false;
};

}  // namespace otx
