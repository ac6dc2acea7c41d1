// The nodes that leave a flow: Return, Break, Continue, TerminateLanes.
#include <OTXCoreActions/ControlExceptions.h>
#include <OTXCoreActions/FlowExit.h>
#include <Trace.h>
#include <schema/core.h>

namespace otxns {

template <>
void Return_impl<Return_base>::exec(OtxContext&) const {
    FlowExit::of(*this).raise();
}

template <>
void Break_impl<Break_base>::exec(OtxContext&) const {
    FlowExit::of(*this).raise();
}

template <>
void Continue_impl<Continue_base>::exec(OtxContext&) const {
    FlowExit::of(*this).raise();
}

template <>
void TerminateLanes_impl<TerminateLanes_base>::exec(OtxContext&) const {
    OTX_TRACE(4, "TerminateLanes");
    throw velkotx::CancelException();
}

}  // namespace otxns
