// What an operator does to a run.
#pragma once

#include <otx/value/COtxValue.h>

#include <optional>
#include <string>

namespace velkotx::host {

// Called on the operator's thread, never while a message is being delivered. Throws nothing but the cancellation of the
// thread.
class RunPort {
public:
    virtual ~RunPort() = default;

    // Why the run refused the event; none if it took it.
    virtual std::optional<std::string> sendEvent(const COtxValue& event) = 0;
    // As sendEvent.
    virtual std::optional<std::string> cancel() = 0;

    // Whether the run has a screen of that name open now. One that was opened a second time, and has gone with the first,
    // can't be told from a new one by its messages.
    bool isOpen(const std::string& screen);
};

}  // namespace velkotx::host
