// What a node does that has no behaviour of its own.
#include <ClassNames.h>
#include <Trace.h>
#include <schema/core.h>
#include <velkotx/Exceptions.h>

namespace otxns {

template <>
void Node_impl<Node_base>::exec(OtxContext&) const {
    const std::string text = "Unimplemented Node: " + type();
    OTX_TRACE(0, text);
    // The colon and the blank are meant.
    throw velkotx::OTXRuntimeException("InternalError: ", text);
}

template <>
std::string Node_impl<Node_base>::type() const {
    return runtimeClass(*this);
}

}  // namespace otxns
