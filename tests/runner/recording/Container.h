// The parameters of a request, response or complex parameter.
#pragma once

#include "Handle.h"

#include <otx/diag/IParameterContainer.h>

namespace documents {

// Part of a handle, whose label it records and puts before those of its parameters.
class Container : public OTX::IParameterContainer {
public:
    explicit Container(const Handle& owner) : owner_(owner) {}

    void SetParameterValueBySemantic(const COtxValue& semantic, const COtxValue& value) override;
    COtxValue GetParameterBySemantic(const COtxValue& semantic) override;
    COtxValue GetParameterByPath(const COtxValue& path) override;
    COtxValue GetParameterByStep(const COtxValue& step) override;
    COtxValue GetParameterAsList() override;

private:
    COtxValue parameter(const std::string& path) const;

    const Handle& owner_;
};

}  // namespace documents
