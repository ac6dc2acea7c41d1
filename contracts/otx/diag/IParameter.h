// One parameter of a request or response.
#pragma once

#include <otx/Export.h>
#include <otx/value/ValueType.h>

class COtxValue;

namespace OTX {

// Behind COtxValue::Parameter(); a complex one answers Container() too. Implemented by the host, which must bear calls from
// several threads at once. The order of the operations is part of the contract.
class OTX_API IParameter {
public:
    virtual COtxValue GetParameterName() = 0;
    virtual void Reserved2() {}
    virtual void SetParameterValue(const COtxValue& value) = 0;
    virtual void Reserved4() {}
    // Booleans.
    virtual COtxValue IsStringParameter() = 0;
    virtual COtxValue IsBooleanParameter() = 0;
    virtual COtxValue IsNumericParameter() = 0;
    virtual COtxValue IsComplexParameter() = 0;
    virtual COtxValue IsByteFieldParameter() = 0;
    // The value converted to the type asked for.
    virtual COtxValue GetParameterValue(ValueType type) = 0;
    virtual void Reserved11() {}
    virtual COtxValue GetParameterDefaultValue() = 0;

protected:
    ~IParameter() = default;
};

}  // namespace OTX
