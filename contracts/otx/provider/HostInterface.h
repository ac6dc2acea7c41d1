// The host as a service provider sees it.
#pragma once

#include <otx/Export.h>

class COtxValue;

namespace ExternalServiceProvider {

// Implemented by the sequencer and handed to each provider as it is made; the provider keeps it as long as it likes. Any
// thread may call it. The order of the operations is part of the contract.
class OTX_API HostInterface {
public:
    // Hands the message to the host's event sink on the calling thread; dropped without a word if the host is gone. Throws
    // what the host's sink throws.
    virtual void sendRequest(const COtxValue& message) = 0;

    virtual ~HostInterface() = default;
};

}  // namespace ExternalServiceProvider
