// The request of a service, as a sequence sees it.
#include "diag/DiagRequest.h"

#include "diag/Described.h"

#include <otx/value/COtxByteField.h>
#include <otx/value/COtxString.h>

#include <utility>

namespace velkotx::host {

DiagRequest::DiagRequest(std::shared_ptr<const MessageDescription> description)
    : COtxValueBehaviour(OTX::ValueType::Request),
      description_(std::move(description)),
      parameters_(makeDescribed<RequestParameters>(description_)),
      container_(parameters_, ParameterTree::root) {}

COtxValue DiagRequest::ToString() { return COtxString(description_->name); }

void DiagRequest::SetPdu(const COtxValue& pdu) {
    const COtxValue field = pdu.ToByteField();
    const std::vector<unsigned char>& bytes = field.ByteField();
    parameters_->setPdu(bytes);
}

COtxValue DiagRequest::GetPdu() { return COtxByteField(parameters_->pdu()); }

}  // namespace velkotx::host
