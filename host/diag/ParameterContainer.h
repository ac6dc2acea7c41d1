// What holds parameters, as a sequence sees it.
#pragma once

#include "diag/MessageParameters.h"

#include <otx/diag/IParameterContainer.h>
#include <otx/value/COtxValue.h>

#include <memory>

namespace velkotx::host {

// A message, or a complex parameter of one. Any thread.
class ParameterContainer final : public OTX::IParameterContainer {
public:
    ParameterContainer(std::shared_ptr<MessageParameters> parameters, ParameterPlace place);
    ~ParameterContainer() = default;

    void SetParameterValueBySemantic(const COtxValue& semantic, const COtxValue& value) override;
    COtxValue GetParameterBySemantic(const COtxValue& semantic) override;
    // Steps are names and, for the items of a repetition or the place among fields, numbers from 0. Throws kind 8.
    COtxValue GetParameterByPath(const COtxValue& path) override;
    COtxValue GetParameterByStep(const COtxValue& step) override;
    COtxValue GetParameterAsList() override;

    const std::shared_ptr<MessageParameters>& parameters() const noexcept { return parameters_; }
    ParameterPlace place() const noexcept { return place_; }

private:
    const std::shared_ptr<MessageParameters> parameters_;
    const ParameterPlace place_;
};

}  // namespace velkotx::host
