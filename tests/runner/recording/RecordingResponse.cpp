// A response.
#include "RecordingResponse.h"

#include <otx/value/COtxByteField.h>
#include <otx/value/COtxResponseState.h>

#include <utility>
#include <vector>

namespace documents {

RecordingResponse::RecordingResponse(CallRecorder& recorder, std::string label, std::string channel, std::string name,
                                     OTX::ValueType type)
    : Handle(recorder, std::move(label), type), channel_(std::move(channel)), name_(std::move(name)), container_(*this) {}

COtxValue RecordingResponse::GetComChannelIdentifier() const {
    call("GetComChannelIdentifier");
    return COtxString(channel_);
}

COtxValue RecordingResponse::GetResponseName() const {
    call("GetResponseName");
    return COtxString(name_);
}

COtxValue RecordingResponse::GetResponseState() const {
    call("GetResponseState");
    return COtxResponseState(isNegative() ? COtxResponseState::Negative : COtxResponseState::Positive);
}

COtxValue RecordingResponse::GetResponseTimestamp() const {
    call("GetResponseTimestamp");
    return isNegative() ? asArgument(std::string("later")) : asArgument(1234);
}

bool RecordingResponse::IsPositive() const {
    call("IsPositive");
    return !isNegative();
}

COtxValue RecordingResponse::GetPdu() {
    call("GetPdu");
    return COtxByteField(isNegative() ? std::vector<unsigned char>{0x7F, 0x22, 0x31}
                                      : std::vector<unsigned char>{0x62, 0xF1, 0x90});
}

}  // namespace documents
