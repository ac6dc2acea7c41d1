// The event sink of a run under the debugger.
#include "program/debug/DebugEventSink.h"

#include "program/debug/RunBoard.h"
#include "program/debug/ThreadEnd.h"

#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>
#include <otx/value/IString.h>

#include <utility>

namespace velkotx::host {

namespace {

std::string textOf(const COtxValue& map, const std::string& key) {
    return OTX::GetOptionalParameter(map, key, COtxString(), OTX::ValueType::String).String();
}

}  // namespace

DebugEventSink::DebugEventSink(std::shared_ptr<HostEventSink> target, std::shared_ptr<RunBoard> board,
                               std::shared_ptr<HostEventSink> theOperator)
    : ForwardingEventSink(std::move(target)), board_(std::move(board)), operator_(std::move(theOperator)) {}

void DebugEventSink::sendRequest(const COtxValue& message) {
    ForwardingEventSink::sendRequest(message);
    operator_->sendRequest(message);
    if (textOf(message, "eventType") != "FlowStopped")
        return;
    const COtxValue status = OTX::GetParameter(message, "status", OTX::ValueType::Map);
    const RunBoard::Flow flow = OTX::GetParameter(status, "id", OTX::ValueType::Integer).Int();
    if (!board_->flowStopped(flow, textOf(status, "node")))
        return;
    callAtThreadEnd([flow, board = std::weak_ptr<RunBoard>(board_)] {
        if (const auto held = board.lock())
            held->flowEnded(flow);
    });
}

}  // namespace velkotx::host
