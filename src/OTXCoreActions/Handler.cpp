// The Handler node: try, catch, finally.
#include <OTXCoreActions/ControlExceptions.h>
#include <OTXCoreActions/Statements.h>
#include <Trace.h>
#include <otx/value/IException.h>

#include <exception>
#include <typeinfo>

namespace otxns {

namespace {

constexpr const char* execName = "otxns::Handler_impl<otxns::Handler_base>::exec";

// Exact types are compared: a catch of a class doesn't take the classes derived from it. Only the root takes all. This
// is meant.
bool takes(const CatchingFlow& candidate, const COtxValue& caught) {
    const auto& realisation = candidate.exception().realisation();
    if (!realisation.present()) return false;
    const Exception& declaration = realisation->type();
    const std::type_info& declared = typeid(declaration);
    return declared == caught.Exception().Type() || declared == typeid(Exception);
}

const CatchingFlow* matching(const HandlerRealisation& handler, const COtxValue& caught) {
    for (const CatchingFlow& candidate : handler.catch_())
        if (takes(candidate, caught)) return &candidate;
    return nullptr;
}

FlowExit runCatch(const CatchingFlow& chosen, const COtxValue& caught, OtxContext& context) {
    const auto& handle = chosen.exception().realisation()->handle();
    if (handle.present()) handle->write(context, caught);
    return run(chosen.flow(), context);
}

}  // namespace

// Break, Continue, a cancel, a runtime failure, and what a catch flow raises leave at once, without `finally`: only an
// OTX exception of the try flow and a Return come by it. This is meant.
FlowExit run(const Handler& node, OtxContext& context) {
    if (!node.realisation().present()) return {};
    const HandlerRealisation& handler = node.realisation().get();
    const std::size_t depth = context.Variables().StackDepth();
    std::exception_ptr pending;
    FlowExit exit;
    try {
        try {
            OTX_TRACE_AS(execName, 4, "Try...");
            exit = run(handler.try_(), context);
        } catch (COtxValue& caught) {
            OTX_TRACE_AS(execName, 3, "Caught: " << caught);
            pending = std::current_exception();
            context.Variables().Unwind(depth);
            if (const CatchingFlow* const chosen = matching(handler, caught)) {
                OTX_TRACE_AS(execName, 4, "Matched: " << caught);
                pending = nullptr;
                exit = runCatch(*chosen, caught, context);
            }
        }
        if (exit && !exit.isReturn()) return exit;
        if (exit) OTX_TRACE_AS(execName, 3, "Caught return");
    } catch (velkotx::ReturnException&) {
        OTX_TRACE_AS(execName, 3, "Caught return");
        pending = std::current_exception();
    }
    if (handler.finally().present()) {
        OTX_TRACE_AS(execName, 4, "Finally...");
        if (const FlowExit replacement = run(handler.finally().get(), context)) return replacement;
    }
    if (pending == nullptr && !exit) return {};
    OTX_TRACE_AS(execName, 4, "No handler matched or early return, rethrowing");
    if (pending != nullptr) std::rethrow_exception(pending);
    return exit;
}

template <>
void Handler_impl<Handler_base>::exec(OtxContext& context) const {
    run(*this, context).raise();
}

}  // namespace otxns
