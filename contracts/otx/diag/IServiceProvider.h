// An external service provider and a service that it runs.
#pragma once

#include <otx/Export.h>

#include <map>
#include <memory>
#include <string>

class COtxValue;
class OtxVariable;

namespace OTX {

// Behind COtxValue::ServiceProvider(). Implemented by providers, which run their services on threads of their own. The
// order of the operations is part of the contract.
class OTX_API IServiceProvider {
public:
    // Starts a service and gives its handle, a value of type ServiceProviderService. The provider writes the in-out and
    // out arguments itself, and keeps their pointers as long as it wants to.
    virtual COtxValue Execute(const std::string& service, const std::map<std::string, COtxValue>& inArguments,
                              const std::map<std::string, std::shared_ptr<OtxVariable>>& inoutArguments,
                              const std::map<std::string, std::shared_ptr<OtxVariable>>& outArguments) = 0;
    // An event from the host.
    virtual void Event(const COtxValue& eventType, const COtxValue& message) = 0;
    virtual void Reserved3() {}
    virtual void Reserved4() {}
    // Every later call but IsDisposed throws kind 23 (ProviderDisposedException).
    virtual void Dispose() = 0;
    // A Boolean.
    virtual COtxValue IsDisposed() = 0;

protected:
    ~IServiceProvider() = default;
};

// Behind COtxValue::ServiceProviderService(). The order of the operations is part of the contract.
class OTX_API IServiceProviderService {
public:
    virtual COtxValue Terminate() = 0;
    // A Boolean.
    virtual COtxValue IsRunning() = 0;
    // An event source that fires an event of kind 6 when the service has ended.
    virtual COtxValue FinishedEventSource() = 0;

protected:
    ~IServiceProviderService() = default;
};

}  // namespace OTX
