// What run control tells the host about flows and variables.
#include <OTXContext/OtxContext.h>
#include <OTXContext/Target.h>
#include <otx/value/COtxInt.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxMap.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>

#include <array>

namespace otxns {

namespace {

using Entries = std::map<const std::string, COtxValue>;

COtxValue stackTrace(const std::vector<std::string>& names) {
    std::vector<COtxValue> items;
    for (const std::string& name : names) items.push_back(COtxString(name));
    return COtxList(std::move(items));
}

}  // namespace

COtxValue OtxContext::flowStatus(OtxFlow& flow, std::thread::id thread) {
    // "CANCELLED" is never reached: no flow counts as stopped twice.
    static constexpr std::array states{"RUNNING", "STOPPED", "CANCELLED"};
    const std::lock_guard own(flow.lock);
    Entries entries;
    entries.emplace("id", COtxInt(flow.flowId));
    entries.emplace("state", COtxString(states[static_cast<std::size_t>(flow.stopped)]));
    if (flow.stopped != 0) {
        // A flow can stop ahead of its first node.
        if (const Node* const node = flow.node.load()) {
            entries.emplace("node", COtxString(node->id()));
            entries.emplace("type", COtxString(node->type()));
            if (node->name().present()) entries.emplace("name", COtxString(node->name().get()));
        }
        entries.emplace("stack", stackTrace(vars.FrameNames(thread)));
        entries.emplace("vars", published(vars.TopFrame(thread)));
    }
    return COtxMap(entries);
}

COtxValue OtxContext::published(const OtxVarMap& scope) {
    Entries values;
    for (const auto& [name, cell] : scope.Snapshot()) {
        const COtxValue live = cell->Value();
        COtxValue copy;
        {
            const std::lock_guard content(contentLock);
            copy = OTX::DeepCopy(live);
        }
        copy.SetOTXJSON(true);
        values.emplace(name, std::move(copy));
    }
    return COtxMap(values);
}

COtxValue OtxContext::status(const Target& target) {
    std::vector<COtxValue> list;
    for (auto& [thread, flow] : flows)
        if (target.matches(thread)) list.push_back(flowStatus(flow, thread));
    return COtxMap(Entries{{"flows", COtxList(std::move(list))}, {"globalvars", published(vars.Globals())}});
}

}  // namespace otxns
