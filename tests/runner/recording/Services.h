// The services that channels have created.
#pragma once

#include "RecordingService.h"

#include <memory>
#include <mutex>
#include <vector>

namespace documents {

// Ends them with itself: a service, its results and its events hold each other, and nobody else knows when that is over.
// Any thread.
class Services {
public:
    Services() = default;
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;
    ~Services() {
        for (const auto& service : services_) service->end();
    }

    COtxValue create(CallRecorder& recorder, const std::string& label, const std::string& channel) {
        const auto service = std::make_shared<RecordingService>(recorder, label, channel);
        const std::lock_guard guard(servicesLock_);
        services_.push_back(service);
        return COtxValue(service);
    }

private:
    std::mutex servicesLock_;
    std::vector<std::shared_ptr<RecordingService>> services_;
};

}  // namespace documents
