// The result of one execution of a diagnostic service.
#pragma once

#include <otx/Export.h>

class COtxValue;

namespace OTX {

// Behind COtxValue::Result(). Implemented by the host, which must bear calls from several threads at once. The order of
// the operations is part of the contract.
class OTX_API IResult {
public:
    virtual COtxValue GetDiagServiceFromResult() = 0;
    // A COtxResultState.
    virtual COtxValue GetResultState() = 0;
    virtual COtxValue GetFirstResponse() = 0;
    // A List.
    virtual COtxValue GetAllResponses() = 0;

protected:
    ~IResult() = default;
};

}  // namespace OTX
