// The bytes of a request or response.
#pragma once

#include <otx/Export.h>

class COtxValue;

namespace OTX {

// Behind COtxValue::Message(). Implemented by the host, which must bear calls from several threads at once.
class OTX_API IMessage {
public:
    // The protocol data unit, a ByteField.
    virtual COtxValue GetPdu() = 0;

protected:
    ~IMessage() = default;
};

}  // namespace OTX
