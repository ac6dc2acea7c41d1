// A communication channel.
#include "RecordingChannel.h"

#include "Answers.h"
#include "RecordingParameter.h"
#include "RecordingResponse.h"

#include <otx/value/COtxByteField.h>
#include <otx/value/COtxComChannelState.h>
#include <otx/value/COtxList.h>

#include <memory>
#include <vector>

namespace documents {

void RecordingChannel::CloseComChannel() { call("CloseComChannel"); }

COtxValue RecordingChannel::CreateDiagServiceByName(const COtxValue& name) {
    call("CreateDiagServiceByName", name);
    return isMissing(name) ? nothing() : service(textOf(name));
}

COtxValue RecordingChannel::CreateDiagServiceBySemantic(const COtxValue& semantic) {
    call("CreateDiagServiceBySemantic", semantic);
    return isMissing(semantic) ? nothing() : service("@" + textOf(semantic));
}

COtxValue RecordingChannel::GetDiagServiceListBySemantic(const COtxValue& semantic) {
    call("GetDiagServiceListBySemantic", semantic);
    if (isMissing(semantic)) return COtxList();
    const std::string name = "@" + textOf(semantic);
    return COtxList(std::vector<COtxValue>{service(name), service(name + "2")});
}

void RecordingChannel::IdentifyAndSelectVariant() { call("IdentifyAndSelectVariant"); }

COtxValue RecordingChannel::GetComChannelEcuVariantName() {
    call("GetComChannelEcuVariantName");
    return COtxString(label() + " variant");
}

COtxValue RecordingChannel::IsVariant() {
    call("IsVariant");
    return COtxBool(true);
}

void RecordingChannel::SetComParameter(const COtxValue& name, const COtxValue& value) {
    call("SetComParameter", name, value);
}

COtxValue RecordingChannel::GetComParameterValue(const COtxValue& name, OTX::ValueType type) {
    call("GetComParameterValue", name, type);
    return sampleOf(type);
}

COtxValue RecordingChannel::GetDefaultComParameterValue(const COtxValue& name, OTX::ValueType type) {
    call("GetDefaultComParameterValue", name, type);
    return sampleOf(type);
}

COtxValue RecordingChannel::ExecuteHexDiagService(const COtxValue& request, bool wantResponse) {
    call("ExecuteHexDiagService", request, wantResponse);
    if (!wantResponse) return COtxValue();
    return COtxValue(std::make_shared<RecordingResponse>(recorder(), label() + ".hex", label(), "hex"));
}

COtxValue RecordingChannel::ExecuteHexDiagServiceFunctional(const COtxValue& request) {
    call("ExecuteHexDiagServiceFunctional", request);
    return COtxList(std::vector<COtxValue>{COtxByteField(std::vector<unsigned char>{0x7E, 0x01}),
                                           COtxByteField(std::vector<unsigned char>{0x7E, 0x02})});
}

void RecordingChannel::SetComplexComParameter(const COtxValue& parameter) { call("SetComplexComParameter", parameter); }

COtxValue RecordingChannel::GetComplexComParameter(const COtxValue& name) {
    call("GetComplexComParameter", name);
    return comParameter(name);
}

COtxValue RecordingChannel::GetDefaultComplexComParameter(const COtxValue& name) {
    call("GetDefaultComplexComParameter", name);
    return comParameter(name);
}

COtxValue RecordingChannel::GetComChannelState() {
    call("GetComChannelState");
    return COtxComChannelState(COtxComChannelState::Online);
}

void RecordingChannel::StartCommunication() { call("StartCommunication"); }

void RecordingChannel::StopCommunication() { call("StopCommunication"); }

COtxValue RecordingChannel::comParameter(const COtxValue& name) const {
    if (isMissing(name)) return nothing();
    return COtxValue(std::make_shared<RecordingParameter>(recorder(), label() + '/' + textOf(name)));
}

}  // namespace documents
