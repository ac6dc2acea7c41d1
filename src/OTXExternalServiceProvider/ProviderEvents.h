// The events of the host for a provider.
#pragma once

class COtxValue;

namespace otxns {
class OtxContext;
}

namespace ExternalServiceProvider {

// Hands an event to the provider of the type that it names, on the calling thread. Throws OTXRuntimeException without a
// host, and what the factory and the provider throw.
void deliverEvent(otxns::OtxContext& context, const COtxValue& message);

}  // namespace ExternalServiceProvider
