// What the run says of a flow.
#pragma once

#include "program/debug/RunBoard.h"

#include <otx/value/COtxValue.h>

#include <string>
#include <vector>

namespace velkotx::host {

// The status of one flow, as the run tells it. Whether the flow is stopped is better asked of the board, since a flow that
// was resumed counts as stopped here until its thread has woken.
struct FlowStatus {
    RunBoard::Flow flow = 0;
    // Of a stopped flow.
    std::string node;                 // its id, empty ahead of the first node
    std::vector<std::string> frames;  // bottom first
    COtxValue variables;              // those of the top frame, a map
};

// The flows of a "status" reply, in the order of their ids.
std::vector<FlowStatus> readFlows(const COtxValue& reply);

// "name = JSON" lines of a map of variables, in the order of the names.
std::string variableLines(const COtxValue& variables);

}  // namespace velkotx::host
