// A service's state, the sources of its end, and its handle.
#include "Service.h"

#include <otx/diag/IServiceProvider.h>
#include <otx/event/COtxSignalEventSource.h>
#include <otx/value/COtxBool.h>

#include <utility>

namespace otx {

namespace {

class Handle final : public COtxValueBehaviour, public OTX::IServiceProviderService {
public:
    explicit Handle(std::shared_ptr<Service> service)
        : COtxValueBehaviour(OTX::ValueType::ServiceProviderService), service_(std::move(service)) {}

    OTX::IServiceProviderService& ServiceProviderService() override { return *this; }

    COtxValue Terminate() override { return COtxBool(service_->terminate()); }
    COtxValue IsRunning() override { return COtxBool(service_->isRunning()); }
    COtxValue FinishedEventSource() override { return service_->newSource(); }

private:
    const std::shared_ptr<Service> service_;
};

}  // namespace

bool Service::terminate() {
    const bool wasRunning = isRunning();
    stop_.request_stop();
    return wasRunning;
}

bool Service::isRunning() const {
    const std::lock_guard guard(serviceLock_);
    return isRunning_;
}

COtxValue Service::newSource() {
    const COtxSignalEventSource source(OTX::EventKind::ServiceExecutionFinished);
    COtxValue result;
    {
        const std::lock_guard guard(serviceLock_);
        if (isRunning_) {
            std::erase_if(sources_, [](const auto& dropped) { return dropped.expired(); });
            sources_.emplace_back(source.GetBehaviourReference());
            return source;
        }
        result = result_;
    }
    source.EventSource().Put(result);
    return source;
}

void Service::finish(const COtxValue& result) {
    std::vector<std::weak_ptr<COtxValueBehaviour>> sources;
    {
        const std::lock_guard guard(serviceLock_);
        isRunning_ = false;
        result_ = result;
        sources.swap(sources_);
    }
    for (const auto& source : sources)
        if (auto living = source.lock()) COtxValue(std::move(living)).EventSource().Put(result);
}

COtxValue makeHandle(std::shared_ptr<Service> service) {
    return COtxValue(std::make_shared<Handle>(std::move(service)));
}

}  // namespace otx
