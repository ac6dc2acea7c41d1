// A diagnostic service of a channel.
#pragma once

#include <otx/Export.h>

class COtxValue;

namespace OTX {

// Behind COtxValue::DiagService(). Implemented by the host, which must bear calls from several threads at once and reports
// failures as COtxException. The order of the operations is part of the contract.
//
// The event of a completed execution must reach whoever took the event source before Execute was called, also when the
// execution ends before the wait begins; after it, GetFirstResult answers the result of the execution just ended.
class OTX_API IDiagService {
public:
    virtual COtxValue EventSource() = 0;
    // Starts one execution and returns at once.
    virtual void Execute(bool suppressPositiveResponse) = 0;
    // A List of all results so far; the store is empty afterwards.
    virtual COtxValue GetAllResultsAndClear() = 0;
    virtual COtxValue GetDiagServiceName() = 0;
    // A value of type Request, which is also the container of the request's parameters.
    virtual COtxValue GetRequest() = 0;
    virtual COtxValue GetFirstResult() = 0;
    virtual COtxValue GetAllResults() = 0;
    virtual void StartRepeatedExecution() = 0;
    virtual void StopRepeatedExecution() = 0;
    virtual void SetRepetitionTime(const COtxValue& time) = 0;
    virtual COtxValue GetRepetitionTime() = 0;

protected:
    ~IDiagService() = default;
};

}  // namespace OTX
