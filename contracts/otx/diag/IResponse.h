// One response within a result.
#pragma once

#include <otx/Export.h>

class COtxValue;

namespace OTX {

// Behind COtxValue::Response(). Such a value answers Container() and Message() too. Implemented by the host, which must
// bear calls from several threads at once. The order of the operations is part of the contract.
class OTX_API IResponse {
public:
    virtual COtxValue GetComChannelIdentifier() const = 0;
    virtual COtxValue GetResponseName() const = 0;
    // A COtxResponseState.
    virtual COtxValue GetResponseState() const = 0;
    virtual COtxValue GetResponseTimestamp() const = 0;
    virtual bool IsPositive() const = 0;

protected:
    ~IResponse() = default;
};

}  // namespace OTX
