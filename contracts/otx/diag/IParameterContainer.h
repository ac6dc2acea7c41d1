// What holds parameters: a request, a response, a complex parameter.
#pragma once

#include <otx/Export.h>

class COtxValue;

namespace OTX {

// Behind COtxValue::Container(). Implemented by the host, which must bear calls from several threads at once. The order of
// the operations is part of the contract.
class OTX_API IParameterContainer {
public:
    virtual void SetParameterValueBySemantic(const COtxValue& semantic, const COtxValue& value) = 0;
    // A value of type Parameter.
    virtual COtxValue GetParameterBySemantic(const COtxValue& semantic) = 0;
    virtual void Reserved3() {}
    // The path is a List of steps; the answer is of type Parameter when the path names a parameter.
    virtual COtxValue GetParameterByPath(const COtxValue& path) = 0;
    // The parameter that one step of a path names.
    virtual COtxValue GetParameterByStep(const COtxValue& step) = 0;
    // A List.
    virtual COtxValue GetParameterAsList() = 0;

protected:
    ~IParameterContainer() = default;
};

}  // namespace OTX
