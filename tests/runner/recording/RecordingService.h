// A diagnostic service.
#pragma once

#include "Handle.h"

#include <otx/diag/IDiagService.h>
#include <otx/event/COtxSignalEventSource.h>
#include <otx/event/IEventSource.h>

#include <mutex>
#include <thread>
#include <vector>

namespace documents {

// An execution is over, with one more result, before Execute returns. When its event comes and what the results are is
// chosen by the service's name, as the README tells.
class RecordingService : public Handle, public OTX::IDiagService {
public:
    RecordingService(CallRecorder& recorder, std::string label, std::string channel);

    OTX::IDiagService& DiagService() override { return *this; }

    COtxValue EventSource() override;
    void Execute(bool suppressPositiveResponse) override;
    COtxValue GetAllResultsAndClear() override;
    COtxValue GetDiagServiceName() override;
    COtxValue GetRequest() override;
    COtxValue GetFirstResult() override;
    COtxValue GetAllResults() override;
    void StartRepeatedExecution() override;
    void StopRepeatedExecution() override;
    void SetRepetitionTime(const COtxValue& time) override;
    COtxValue GetRepetitionTime() override;

    // Joins its threads, and lets go of results and events, which hold the service in their turn. To be called once, when
    // nobody calls the service any more.
    void end();

private:
    COtxValue self() { return COtxValue(shared_from_this()); }
    COtxValue nextResult();

    const std::string channel_;
    const COtxSignalEventSource source_{OTX::EventKind::DiagService};
    std::mutex resultsLock_;  // guards all below
    std::vector<COtxValue> results_;
    int executions_ = 0;
    COtxValue repetitionTime_ = COtxInt(0);
    std::vector<std::thread> signallers_;
};

}  // namespace documents
