// The event sink of a run under the debugger.
#pragma once

#include "objects/ForwardingEventSink.h"

#include <memory>

namespace velkotx::host {

class RunBoard;

// Hands each message on and to the operator, and reports the stops and the ends of flows to the board.
class DebugEventSink : public ForwardingEventSink {
public:
    DebugEventSink(std::shared_ptr<HostEventSink> target, std::shared_ptr<RunBoard> board,
                   std::shared_ptr<HostEventSink> theOperator);

    void sendRequest(const COtxValue& message) override;

private:
    const std::shared_ptr<RunBoard> board_;
    const std::shared_ptr<HostEventSink> operator_;
};

}  // namespace velkotx::host
