// A diagnostic service, as a sequence sees it.
#pragma once

#include "diag/ServiceExecution.h"

#include <otx/diag/IDiagService.h>
#include <otx/value/COtxValueBehaviour.h>

#include <memory>
#include <mutex>

namespace velkotx::host {

// Behind values of type DiagService: a handle, of which one service may have several, all equal. Any thread.
class DiagServiceHandle final : public COtxValueBehaviour, public OTX::IDiagService {
public:
    // The handle in an event doesn't keep the event source: events lie in their source, which would never go away.
    enum class Source { Keep, Leave };

    DiagServiceHandle(std::shared_ptr<ServiceExecution> execution, Source source);

    OTX::IDiagService& DiagService() override { return *this; }
    COtxValue ToString() override { return GetDiagServiceName(); }
    bool operator==(const COtxValueBehaviour* other) const override;
    bool IsLessThan(const COtxValue& right) const override;

    COtxValue EventSource() override;
    // Throws kind 11 for a request that isn't complete, kind 12 on a channel that isn't in communication or while the
    // service is executed repeatedly, kind 15 when the link is down.
    void Execute(bool suppressPositiveResponse) override;
    COtxValue GetAllResultsAndClear() override;
    COtxValue GetDiagServiceName() override;
    COtxValue GetRequest() override;
    // That of the execution started last, for whose end it waits; throws kind 12 when the event source is closed meanwhile,
    // or when there is no result.
    COtxValue GetFirstResult() override;
    COtxValue GetAllResults() override;
    void StartRepeatedExecution() override;
    // What is on its way still gives a result and an event.
    void StopRepeatedExecution() override;
    // Milliseconds, or a Quantity of time. Throws kind 7 for what is no time from 1 ms to a day.
    void SetRepetitionTime(const COtxValue& time) override;
    // Milliseconds: an Integer, or a Float when there is a fraction.
    COtxValue GetRepetitionTime() override;

private:
    void settle();
    COtxValue knownSource();
    COtxValue list(const ServiceResults::List& results) const;

    const std::shared_ptr<ServiceExecution> execution_;
    // Guards source_.
    std::mutex sourceLock_;
    COtxValue source_;
};

// A value of type DiagService.
COtxValue makeService(const std::shared_ptr<ServiceExecution>& execution);
// The same for an event.
COtxValue makeServiceOfEvent(const std::shared_ptr<ServiceExecution>& execution);

}  // namespace velkotx::host
