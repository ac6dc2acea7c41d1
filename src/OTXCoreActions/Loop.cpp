// The Loop node, and the loop configuration without behaviour.
#include <ClassNames.h>
#include <OTXCoreActions/Statements.h>
#include <Trace.h>
#include <velkotx/Exceptions.h>

namespace otxns {

template <>
void LoopConfigurationRealisation_impl<LoopConfigurationRealisation_base>::exec(OtxContext&, const Flow&,
                                                                                const OtxName&) const {
    const std::string text = "Unimplemented LoopConfigurationRealisation: " + type();
    OTX_TRACE(0, text);
    throw velkotx::OTXRuntimeException("InternalError", text);
}

template <>
std::string LoopConfigurationRealisation_impl<LoopConfigurationRealisation_base>::type() const {
    return runtimeClass(*this);
}

// Without a configuration the body doesn't run.
FlowExit run(const Loop& loop, OtxContext& context) {
    static const OtxName unnamed;
    if (!loop.realisation().present()) return {};
    const auto& realisation = loop.realisation()->configuration().realisation();
    if (!realisation.present()) return {};
    const LoopConfigurationRealisation& configuration = realisation.get();
    const Flow& body = loop.realisation()->flow();
    const OtxName& name = loop.name().present() ? loop.name().get() : unnamed;
    if (const auto* const counting = exactly<ForLoop>(configuration)) return run(*counting, context, body, name);
    if (const auto* const testing = exactly<WhileLoop>(configuration)) return run(*testing, context, body, name);
    if (const auto* const walking = exactly<ForEachLoop>(configuration)) return run(*walking, context, body, name);
    configuration.exec(context, body, name);
    return {};
}

template <>
void Loop_impl<Loop_base>::exec(OtxContext& context) const {
    run(*this, context).raise();
}

template <>
std::string Loop_impl<Loop_base>::type() const {
    if (!realisation().present() || !realisation()->configuration().realisation().present()) return "Null loop";
    return realisation()->configuration().realisation()->type();
}

}  // namespace otxns
