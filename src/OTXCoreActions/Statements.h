// The statements of the core that contain flows, as functions that hand up how they ended.
#pragma once

#include <OTXContext/OtxContext.h>
#include <OTXCoreActions/FlowExit.h>

#include <typeinfo>

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

// The object as its class, if it is of that very class: a class that someone derives from it has its own exec().
template <class Class, class Base>
const Class* exactly(const Base& object) noexcept {
    return &typeid(object) == &typeid(Class) ? static_cast<const Class*>(&object) : nullptr;
}

}  // namespace otxns
