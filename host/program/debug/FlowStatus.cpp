// What the run says of a flow.
#include "program/debug/FlowStatus.h"

#include "program/JsonText.h"
#include "text/OneLine.h"

#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>
#include <otx/value/IString.h>

#include <algorithm>

namespace velkotx::host {

namespace {

FlowStatus readFlow(const COtxValue& status) {
    using OTX::ValueType;
    FlowStatus flow;
    flow.flow = OTX::GetParameter(status, "id", ValueType::Integer).Int();
    flow.node = OTX::GetOptionalParameter(status, "node", COtxString(), ValueType::String).String();
    const COtxValue stack = OTX::GetOptionalParameter(status, "stack", COtxList(), ValueType::List);
    for (const COtxValue& frame : stack.List())
        flow.frames.push_back(frame.String());
    flow.variables = OTX::GetOptionalParameter(status, "vars", COtxMap(), ValueType::Map);
    return flow;
}

}  // namespace

std::vector<FlowStatus> readFlows(const COtxValue& reply) {
    std::vector<FlowStatus> flows;
    const COtxValue list = OTX::GetParameter(reply, "flows", OTX::ValueType::List);
    for (const COtxValue& status : list.List())
        flows.push_back(readFlow(status));
    std::ranges::sort(flows, {}, &FlowStatus::flow);
    return flows;
}

std::string variableLines(const COtxValue& variables) {
    std::string lines;
    for (const auto& [name, value] : variables.Map())
        lines += oneLine(name.String()) + " = " + jsonText(value) + '\n';
    return lines;
}

}  // namespace velkotx::host
