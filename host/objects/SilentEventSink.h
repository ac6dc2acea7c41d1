// An event sink for hosts that take no interest in messages: it drops them.
#pragma once

#include <velkotx/HostEventSink.h>

namespace velkotx::host {

// A run needs a sink to end well, even one that shows no screen. Any thread may send.
class SilentEventSink : public HostEventSink {
public:
    void sendRequest(const COtxValue&) override {}
};

}  // namespace velkotx::host
