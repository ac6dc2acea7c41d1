// The request of a service.
#include "RecordingRequest.h"

#include <otx/value/COtxByteField.h>

#include <vector>

namespace documents {

RecordingRequest::RecordingRequest(CallRecorder& recorder, std::string label)
    : Handle(recorder, std::move(label), OTX::ValueType::Request), container_(*this) {}

void RecordingRequest::SetPdu(const COtxValue& pdu) { call("SetPdu", pdu); }

COtxValue RecordingRequest::GetPdu() {
    call("GetPdu");
    return COtxByteField(std::vector<unsigned char>{0x22, 0xF1, 0x90});
}

}  // namespace documents
