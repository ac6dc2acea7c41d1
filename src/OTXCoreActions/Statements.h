// The statements of the core that contain flows, as functions that hand up how they ended.
#pragma once

#include <Exactly.h>
#include <OTXContext/OtxContext.h>
#include <OTXCoreActions/FlowExit.h>

namespace otxns {

// Each is the whole behaviour of its class; exec() is run(...).raise().
FlowExit run(const Flow& flow, OtxContext& context);
FlowExit run(const Branch& branch, OtxContext& context);
FlowExit run(const MutexGroup& group, OtxContext& context);
FlowExit run(const Group& group, OtxContext& context);
FlowExit run(const Handler& handler, OtxContext& context);
FlowExit run(const Loop& loop, OtxContext& context);
FlowExit run(const ForLoop& loop, OtxContext& context, const Flow& body, const OtxName& loopName);
FlowExit run(const ForEachLoop& loop, OtxContext& context, const Flow& body, const OtxName& loopName);
FlowExit run(const WhileLoop& loop, OtxContext& context, const Flow& body, const OtxName& loopName);

}  // namespace otxns
