// The events of the host for a provider.
#include <OTXContext/OtxContext.h>
#include <OTXExternalServiceProvider/ProviderEvents.h>
#include <otx/diag/IServiceProvider.h>
#include <otx/provider/ServiceProviderFactory.h>
#include <otx/value/Functions.h>

namespace ExternalServiceProvider {

void deliverEvent(otxns::OtxContext& context, const COtxValue& message) {
    context.HostService();  // only asked whether it is there
    auto& factory = context.ServiceProviderFactory();
    const std::string providerType = OTX::GetParameter(message, "providerType", OTX::ValueType::String).String();
    const COtxValue provider = factory.Get(providerType, "", {});
    const COtxValue eventType = OTX::GetParameter(message, "eventType", OTX::ValueType::String);
    provider.ServiceProvider().Event(eventType, message);
}

}  // namespace ExternalServiceProvider
