// What a signature does that has no behaviour of its own: unknown kinds do no harm.
#include <ClassNames.h>
#include <Trace.h>
#include <otx/value/COtxValue.h>
#include <schema/core.h>

namespace otxns {

template <>
COtxValue SignatureRealisation_impl<SignatureRealisation_base>::eval(OtxContext&) const {
    OTX_TRACE(4, "Unimplemented: " << runtimeClass(*this));
    return COtxValue();
}

}  // namespace otxns
