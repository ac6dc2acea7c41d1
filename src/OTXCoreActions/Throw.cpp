// The Throw node.
#include <OTXCoreTerms/Evaluate.h>
#include <Trace.h>
#include <otx/value/COtxException.h>

namespace otxns {

template <>
void Throw_impl<Throw_base>::exec(OtxContext& context) const {
    if (!realisation().present()) return;
    const COtxValue exception = evaluate(realisation().get(), context);
    if (exception.Type() == OTX::ValueType::Exception) {
        OTX_TRACE(4, "Throw: " << exception);
        throw COtxValue(exception);
    }
    OTX_TRACE(0, "InvalidReferenceException");
    throw COtxException(OTX::Exceptions_e::InvalidReferenceException);
}

}  // namespace otxns
