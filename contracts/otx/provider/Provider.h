// A base for those who write providers: services on threads of their own, handles, ends and disposal are taken care of.
#pragma once

#include <otx/Export.h>
#include <otx/provider/ProviderArguments.h>
#include <otx/value/COtxValue.h>

#include <functional>
#include <memory>
#include <stop_token>
#include <string>

namespace ExternalServiceProvider {

// What a service does, on a thread of its own. The token tells when it is to end early: by TerminateService, by the disposal
// of the provider, or since the last value of the provider went. It has to look at the token often, since the disposal waits
// for it. What it throws is the value of the event of its end, as an exception of kind 22 (ProviderServiceException) unless
// it is an OTX exception already; nobody else hears of it.
using ServiceWork = std::function<void(std::stop_token terminated)>;

// Derived by the author of a provider. It lives as long as a value of the provider or one of its services, so that a service
// may use it by `this`; the last of them destroys it, on its thread.
class OTX_API Provider {
public:
    virtual ~Provider();

    // Looks at the arguments and gives what the service does. Called on the lane's thread, by several lanes at once: refuses
    // here what can be refused at once, since only that reaches the sequence as an exception. An unknown service or bad
    // argument is kind 25 (ExecuteException), as by RefuseService.
    virtual ServiceWork Execute(const std::string& service, const ProviderArguments& in,
                                const ProviderVariables& variables) = 0;

    // An event from the host, on the host's thread. By default none is known: throws kind 21 (ProviderException).
    virtual void Event(const std::string& eventType, const COtxValue& message);
};

// The value of a provider. It has these rules:
//
// - Execute begins the work on a new thread. The service ends when its work returns or throws.
// - A handle's Terminate asks the work to end, without waiting, and answers whether it was still running. Each
//   FinishedEventSource is a new source, of the thread that asks, that fires once; at once if the service has ended. The
//   value of its event is empty, or the exception that ended the service.
// - Dispose, and the end of the last value, ask all services to end and wait for them; on a service's own thread that one
//   isn't waited for. After Dispose all calls but IsDisposed throw kind 23 (ProviderDisposedException); handles stay good.
// - What Execute and Event of the author throw reaches the caller, as kind 22 with the text unless it is an OTX exception.
//
// Throws kind 21 (ProviderException) for a null pointer.
OTX_API COtxValue MakeProvider(std::shared_ptr<Provider> provider);

// Throw kind 21 for the name of a constructor, kind 25 for that of a service, which the type doesn't have.
[[noreturn]] OTX_API void RefuseConstructor(const std::string& providerType, const std::string& constructorName);
[[noreturn]] OTX_API void RefuseService(const std::string& providerType, const std::string& service);

}  // namespace ExternalServiceProvider
