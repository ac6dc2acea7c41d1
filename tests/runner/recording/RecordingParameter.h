// A parameter.
#pragma once

#include "Container.h"
#include "Handle.h"

#include <otx/diag/IParameter.h>

namespace documents {

// Its name is what stands behind the last "/" of its label. One of the names "string", "boolean", "numeric", "complex" and
// "bytes" is of that kind, others are of none. A complex one is a container of parameters.
class RecordingParameter : public Handle, public OTX::IParameter {
public:
    RecordingParameter(CallRecorder& recorder, std::string label);

    OTX::IParameter& IParameter() override { return *this; }
    bool IsContainer() const override { return isNamed("complex"); }
    OTX::IParameterContainer& Container() override;

    COtxValue GetParameterName() override;
    void SetParameterValue(const COtxValue& value) override;
    COtxValue IsStringParameter() override;
    COtxValue IsBooleanParameter() override;
    COtxValue IsNumericParameter() override;
    COtxValue IsComplexParameter() override;
    COtxValue IsByteFieldParameter() override;
    COtxValue GetParameterValue(OTX::ValueType type) override;
    COtxValue GetParameterDefaultValue() override;

private:
    std::string name() const;
    bool isNamed(const char* kind) const { return name() == kind; }

    documents::Container container_;
};

}  // namespace documents
