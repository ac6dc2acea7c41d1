// The Handler node: try, catch, finally.
#include <OTXContext/OtxContext.h>
#include <OTXCoreActions/ControlExceptions.h>
#include <Trace.h>
#include <otx/value/IException.h>

#include <exception>
#include <typeinfo>

namespace otxns {

namespace {

// Exact types are compared: a catch of a class doesn't take the classes derived from it. Only the root takes all. This is
// meant.
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

void runCatch(const CatchingFlow& chosen, const COtxValue& caught, OtxContext& context) {
    const auto& handle = chosen.exception().realisation()->handle();
    if (handle.present()) handle->write(context, caught);
    chosen.flow().exec(context);
}

}  // namespace

// Break, Continue, a cancel, a runtime failure, and what a catch flow raises leave at once, without `finally`: only an OTX
// exception of the try flow and a Return come by it. This is meant.
template <>
void Handler_impl<Handler_base>::exec(OtxContext& context) const {
    if (!realisation().present()) return;
    const HandlerRealisation& handler = realisation().get();
    const std::size_t depth = context.Variables().StackDepth();
    std::exception_ptr pending;
    try {
        try {
            OTX_TRACE(4, "Try...");
            handler.try_().exec(context);
        } catch (COtxValue& caught) {
            OTX_TRACE(3, "Caught: " << caught);
            pending = std::current_exception();
            context.Variables().Unwind(depth);
            if (const CatchingFlow* const chosen = matching(handler, caught)) {
                OTX_TRACE(4, "Matched: " << caught);
                pending = nullptr;
                runCatch(*chosen, caught, context);
            }
        }
    } catch (velkotx::ReturnException&) {
        OTX_TRACE(3, "Caught return");
        pending = std::current_exception();
    }
    if (handler.finally().present()) {
        OTX_TRACE(4, "Finally...");
        handler.finally()->exec(context);
    }
    if (pending != nullptr) {
        OTX_TRACE(4, "No handler matched or early return, rethrowing");
        std::rethrow_exception(pending);
    }
}

}  // namespace otxns
