// The request of a diagnostic service.
#pragma once

#include <otx/Export.h>

class COtxValue;

namespace OTX {

// Behind COtxValue::Request(). Such a value answers Container() and Message() too. Implemented by the host, which must
// bear calls from several threads at once.
class OTX_API IRequest {
public:
    // Sets the protocol data unit as a whole.
    virtual void SetPdu(const COtxValue& pdu) = 0;

protected:
    ~IRequest() = default;
};

}  // namespace OTX
