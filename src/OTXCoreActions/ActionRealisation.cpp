// What an action does that has no behaviour of its own.
#include <ClassNames.h>
#include <Trace.h>
#include <schema/core.h>
#include <velkotx/Exceptions.h>

namespace otxns {

template <>
void ActionRealisation_impl<ActionRealisation_base>::exec(OtxContext&) const {
    const std::string text = "Unimplemented Action: " + type();
    OTX_TRACE(0, text);
    throw velkotx::OTXRuntimeException("InternalError", text);
}

template <>
std::string ActionRealisation_impl<ActionRealisation_base>::type() const {
    return runtimeClass(*this);
}

}  // namespace otxns
