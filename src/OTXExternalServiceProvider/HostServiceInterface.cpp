// Messages of service providers to the host.
#include <OTXExternalServiceProvider/HostServiceInterface.h>
#include <velkotx/HostEventSink.h>

#include <utility>

namespace ExternalServiceProvider {

HostServiceInterface::HostServiceInterface(std::weak_ptr<velkotx::HostEventSink> sink) : host(std::move(sink)) {}

void HostServiceInterface::sendRequest(const COtxValue& message) {
    if (const auto sink = host.lock()) sink->sendRequest(message);
}

}  // namespace ExternalServiceProvider
