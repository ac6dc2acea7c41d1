// The Loop node, and the loop configuration without behaviour.
#include <ClassNames.h>
#include <Trace.h>
#include <schema/core.h>
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
template <>
void Loop_impl<Loop_base>::exec(OtxContext& context) const {
    static const OtxName unnamed;
    if (!realisation().present()) return;
    const auto& configuration = realisation()->configuration().realisation();
    if (!configuration.present()) return;
    configuration->exec(context, realisation()->flow(), name().present() ? name().get() : unnamed);
}

template <>
std::string Loop_impl<Loop_base>::type() const {
    if (!realisation().present() || !realisation()->configuration().realisation().present()) return "Null loop";
    return realisation()->configuration().realisation()->type();
}

}  // namespace otxns
