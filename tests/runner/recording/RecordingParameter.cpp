// A parameter.
#include "RecordingParameter.h"

#include "Answers.h"

namespace documents {

RecordingParameter::RecordingParameter(CallRecorder& recorder, std::string label)
    : Handle(recorder, std::move(label), OTX::ValueType::Parameter), container_(*this) {}

OTX::IParameterContainer& RecordingParameter::Container() {
    if (!IsContainer()) return COtxValueBehaviour::Container();
    return container_;
}

std::string RecordingParameter::name() const { return label().substr(label().rfind('/') + 1); }

COtxValue RecordingParameter::GetParameterName() {
    call("GetParameterName");
    return COtxString(name());
}

void RecordingParameter::SetParameterValue(const COtxValue& value) { call("SetParameterValue", value); }

COtxValue RecordingParameter::IsStringParameter() {
    call("IsStringParameter");
    return COtxBool(isNamed("string"));
}

COtxValue RecordingParameter::IsBooleanParameter() {
    call("IsBooleanParameter");
    return COtxBool(isNamed("boolean"));
}

COtxValue RecordingParameter::IsNumericParameter() {
    call("IsNumericParameter");
    return COtxBool(isNamed("numeric"));
}

COtxValue RecordingParameter::IsComplexParameter() {
    call("IsComplexParameter");
    return COtxBool(isNamed("complex"));
}

COtxValue RecordingParameter::IsByteFieldParameter() {
    call("IsByteFieldParameter");
    return COtxBool(isNamed("bytes"));
}

COtxValue RecordingParameter::GetParameterValue(OTX::ValueType type) {
    call("GetParameterValue", type);
    return sampleOf(type);
}

COtxValue RecordingParameter::GetParameterDefaultValue() {
    call("GetParameterDefaultValue");
    return COtxString("default of " + name());
}

}  // namespace documents
