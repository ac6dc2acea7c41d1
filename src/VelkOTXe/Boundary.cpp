// An OTX exception as the host sees it.
#include <VelkOTXe/Boundary.h>
#include <otx/value/IException.h>
#include <velkotx/Exceptions.h>

namespace otxns {

void leaveAsSequenceException(const COtxValue& exception) {
    // A host object may throw any value.
    if (exception.Type() != OTX::ValueType::Exception)
        throw velkotx::OTXSequenceException(exception.stringType(), exception.what());
    const OTX::IException& thrown = exception.Exception();
    throw velkotx::OTXSequenceException(thrown.Name(), thrown.Text());
}

}  // namespace otxns
