// The refusal of writes to the host's context variables.
#include <OtxVars/OtxContextVarMap.h>
#include <otx/value/COtxException.h>

namespace otxns {

namespace {

[[noreturn]] bool refuse() {
    throw COtxException(OTX::Exceptions_e::InvalidReferenceException, "Setting of context variables is disallowed");
}

}  // namespace

bool OtxContextVarMap::Set(const Name&, const COtxValue&) {
    return refuse();
}

bool OtxContextVarMap::Bind(const Name&, const std::shared_ptr<OtxVariable>&) {
    return refuse();
}

}  // namespace otxns
