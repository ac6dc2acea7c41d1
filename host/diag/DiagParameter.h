// One parameter of a message, as a sequence sees it.
#pragma once

#include "diag/ParameterContainer.h"

#include <otx/diag/IParameter.h>
#include <otx/value/COtxValueBehaviour.h>

#include <memory>

namespace velkotx::host {

// Behind values of type Parameter. A complex one answers Container() too. Any thread.
class DiagParameter final : public COtxValueBehaviour, public OTX::IParameter {
public:
    DiagParameter(std::shared_ptr<MessageParameters> parameters, ParameterPlace place);

    OTX::IParameter& IParameter() override { return *this; }
    OTX::IParameterContainer& Container() override;
    bool IsContainer() const override;
    COtxValue ToString() override { return GetParameterName(); }

    COtxValue GetParameterName() override;
    void SetParameterValue(const COtxValue& value) override;
    COtxValue IsStringParameter() override;
    COtxValue IsBooleanParameter() override;
    COtxValue IsNumericParameter() override;
    COtxValue IsComplexParameter() override;
    COtxValue IsByteFieldParameter() override;
    COtxValue GetParameterValue(OTX::ValueType type) override;
    // Of a request's parameter. Throws kind 7 for one that has none.
    COtxValue GetParameterDefaultValue() override;

    const ParameterContainer& self() const noexcept { return self_; }

private:

    // The parameter, seen as what holds its fields.
    ParameterContainer self_;
    const ParameterDescription* const description_;
    const bool complex_;
};

// A value of type Parameter.
COtxValue makeParameter(const std::shared_ptr<MessageParameters>& parameters, ParameterPlace place);

}  // namespace velkotx::host
