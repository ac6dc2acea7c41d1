// The end nodes Return, Break and Continue as results and as exceptions.
#include <OTXCoreActions/ControlExceptions.h>
#include <OTXCoreActions/FlowExit.h>
#include <Trace.h>
#include <schema/core.h>
#include <velkotx/LoopExceptions.h>

namespace otxns {

namespace {

template <class LoopEnd>
const std::string& targetOf(const LoopEnd& node) {
    static const std::string innermost;
    return node.target().present() ? node.target().get() : innermost;
}

}  // namespace

FlowExit FlowExit::of(const Return& node) {
    OTX_TRACE_AS("otxns::Return_impl<otxns::Return_base>::exec", 4, "Return");
    return {Kind::returned, node.id()};
}

FlowExit FlowExit::of(const Break& node) {
    return {Kind::broke, targetOf(node)};
}

FlowExit FlowExit::of(const Continue& node) {
    return {Kind::continued, targetOf(node)};
}

void FlowExit::throwException() const {
    if (kind_ == Kind::returned) throw velkotx::ReturnException(*name_);
    if (kind_ == Kind::broke) throw velkotx::BreakException(*name_);
    throw velkotx::ContinueException(*name_);
}

}  // namespace otxns
