// What this host's interfaces offer to the channels that are opened on them.
#pragma once

#include <otx/host/IPduComInterface.h>

namespace velkotx::host {

// Any thread.
class PduComInterface : public ComInterface::IPduComInterface {
public:
    // Throws kind 34 when the interface isn't connected, kind 31 when it was closed.
    virtual void requireConnected() const = 0;
};

}  // namespace velkotx::host
