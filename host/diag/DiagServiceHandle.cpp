// A diagnostic service, as a sequence sees it.
#include "diag/DiagServiceHandle.h"

#include "diag/Milliseconds.h"

#include <otx/event/COtxMultiEventSource.h>
#include <otx/event/COtxSignalEventSource.h>
#include <otx/value/COtxList.h>
#include <otx/value/COtxString.h>

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace velkotx::host {

using OTX::Exceptions_e;

DiagServiceHandle::DiagServiceHandle(std::shared_ptr<ServiceExecution> execution, Source source)
    : COtxValueBehaviour(OTX::ValueType::DiagService), execution_(std::move(execution)) {
    if (source == Source::Keep)
        source_ = execution_->results().source();
}

bool DiagServiceHandle::operator==(const COtxValueBehaviour* other) const {
    const auto* const service = dynamic_cast<const DiagServiceHandle*>(other);
    return service != nullptr && service->execution_ == execution_;
}

bool DiagServiceHandle::IsLessThan(const COtxValue& right) const {
    const auto* const service = dynamic_cast<const DiagServiceHandle*>(right.GetBehaviourReference().get());
    return service != nullptr ? std::less<>()(execution_, service->execution_)
                              : COtxValueBehaviour::IsLessThan(right);
}

COtxValue DiagServiceHandle::EventSource() {
    COtxValue source = execution_->results().source();
    const std::lock_guard guard(sourceLock_);
    source_ = source;
    return source;
}

void DiagServiceHandle::Execute(bool suppressPositiveResponse) { execution_->start(suppressPositiveResponse); }

COtxValue DiagServiceHandle::GetDiagServiceName() { return COtxString(execution_->name()); }
COtxValue DiagServiceHandle::GetRequest() { return COtxValue(execution_->request()); }

COtxValue DiagServiceHandle::list(const ServiceResults::List& results) const {
    std::vector<COtxValue> values;
    values.reserve(results.size());
    for (const auto& result : results)
        values.emplace_back(std::make_shared<DiagResult>(execution_, result));
    return COtxList(std::move(values));
}

COtxValue DiagServiceHandle::GetAllResults() { return list(execution_->results().all()); }
COtxValue DiagServiceHandle::GetAllResultsAndClear() { return list(execution_->results().takeAll()); }

COtxValue DiagServiceHandle::GetFirstResult() {
    settle();
    const auto first = execution_->results().first();
    if (first == nullptr)
        fail(Exceptions_e::InvalidStateException, "'" + execution_->name() + "' has no result");
    return COtxValue(std::make_shared<DiagResult>(execution_, first));
}

// The event that brought the caller here may be that of an earlier execution, which nobody waited for. Its own event, read
// here, goes back to where others look for it; a source that is closed ends the wait, since then the run is cancelled.
void DiagServiceHandle::settle() {
    ServiceResults& results = execution_->results();
    const std::uint64_t newest = results.started();
    if (results.haveEnded(newest))
        return;
    const COtxValue source = knownSource();
    const COtxSignalEventSource settled(OTX::EventKind::DiagService);
    const COtxMultiEventSource either;
    either.EventSource().Add(source);
    either.EventSource().Add(settled);
    results.listen(settled);
    std::vector<COtxValue> taken;
    bool open = true;
    while (open && !results.haveEnded(newest)) {
        COtxValue event;
        open = either.EventSource().Wait(event);
        if (open && event.Event().Value().Type() != OTX::ValueType::Empty)
            taken.push_back(event.Event().Value());
    }
    results.unlisten(settled);
    for (const COtxValue& value : taken)
        source.EventSource().Put(value);
    if (!open)
        fail(Exceptions_e::InvalidStateException,
             "'" + execution_->name() + "' still runs, and its event source has been closed");
}

// The one that was handed out, closed or not.
COtxValue DiagServiceHandle::knownSource() {
    {
        const std::lock_guard guard(sourceLock_);
        if (source_.Type() == OTX::ValueType::EventSource)
            return source_;
    }
    return EventSource();
}

void DiagServiceHandle::StartRepeatedExecution() { execution_->startRepetition(); }
void DiagServiceHandle::StopRepeatedExecution() { execution_->stopRepetition(); }

void DiagServiceHandle::SetRepetitionTime(const COtxValue& time) {
    execution_->setRepetitionTime(fromMilliseconds(time));
}

COtxValue DiagServiceHandle::GetRepetitionTime() { return toMilliseconds(execution_->repetitionTime()); }

COtxValue makeService(const std::shared_ptr<ServiceExecution>& execution) {
    return COtxValue(std::make_shared<DiagServiceHandle>(execution, DiagServiceHandle::Source::Keep));
}

COtxValue makeServiceOfEvent(const std::shared_ptr<ServiceExecution>& execution) {
    return COtxValue(std::make_shared<DiagServiceHandle>(execution, DiagServiceHandle::Source::Leave));
}

}  // namespace velkotx::host
