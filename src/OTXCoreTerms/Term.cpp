// What a term does that has no behaviour of its own.
#include <ClassNames.h>
#include <Trace.h>
#include <otx/value/COtxValue.h>
#include <schema/core.h>
#include <velkotx/Exceptions.h>

namespace otxns {

template <>
COtxValue Term_impl<Term_base>::eval(OtxContext&) const {
    const std::string text = "Unimplemented Term: " + withoutNamespace(runtimeClass(*this));
    OTX_TRACE(0, text);
    throw velkotx::OTXRuntimeException("InternalError", text);
}

}  // namespace otxns
