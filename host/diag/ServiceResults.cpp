// The results of a service, and who is told of them.
#include "diag/ServiceResults.h"

#include <otx/event/COtxEventSource.h>
#include <otx/event/COtxSignalEventSource.h>

#include <algorithm>
#include <utility>

namespace velkotx::host {

COtxValue ServiceResults::source() {
    const std::lock_guard guard(resultsLock_);
    if (COtxValue known{source_.lock()}; known.GetBehaviourReference() != nullptr && !COtxEventSource::IsClosed(known))
        return known;
    COtxSignalEventSource source(OTX::EventKind::DiagService);
    source_ = source.GetBehaviourReference();
    return source;
}

void ServiceResults::begin() {
    const std::lock_guard guard(resultsLock_);
    ++started_;
}

void ServiceResults::abandon() {
    {
        const std::lock_guard guard(resultsLock_);
        ++ended_;
    }
    signalListeners();
}

void ServiceResults::end(Result result, const COtxValue& service) { replace(std::move(result), service, false); }
void ServiceResults::refuse(Result result, const COtxValue& service) { replace(std::move(result), service, true); }

void ServiceResults::replace(Result&& result, const COtxValue& service, bool refused) {
    std::deque<Result> old;
    {
        const std::lock_guard guard(resultsLock_);
        ++ended_;
        if (refused)
            refused_ = started_;
        old.swap(results_);
        store(std::move(result));
    }
    tell(service);
    signalListeners();
}

void ServiceResults::append(Result result, const COtxValue& service) {
    {
        const std::lock_guard guard(resultsLock_);
        store(std::move(result));
    }
    tell(service);
}

void ServiceResults::store(Result&& result) {
    results_.push_back(std::move(result));
    if (results_.size() > most)
        results_.pop_front();
}

void ServiceResults::tell(const COtxValue& service) {
    std::shared_ptr<COtxValueBehaviour> source;
    {
        const std::lock_guard guard(resultsLock_);
        source = source_.lock();
    }
    if (source != nullptr)
        source->IEventSource().Put(service);
}

void ServiceResults::signalListeners() {
    std::vector<COtxValue> listeners;
    {
        const std::lock_guard guard(resultsLock_);
        listeners = listeners_;
    }
    for (const COtxValue& listener : listeners)
        listener.EventSource().Signal();
}

std::uint64_t ServiceResults::started() const {
    const std::lock_guard guard(resultsLock_);
    return started_;
}

bool ServiceResults::haveEnded(std::uint64_t executions) const {
    const std::lock_guard guard(resultsLock_);
    return ended_ >= executions || refused_ >= executions;
}

void ServiceResults::listen(const COtxValue& listener) {
    const std::lock_guard guard(resultsLock_);
    listeners_.push_back(listener);
}

void ServiceResults::unlisten(const COtxValue& listener) {
    const std::lock_guard guard(resultsLock_);
    std::erase(listeners_, listener);
}

ServiceResults::Result ServiceResults::first() const {
    const std::lock_guard guard(resultsLock_);
    return results_.empty() ? nullptr : results_.front();
}

ServiceResults::List ServiceResults::all() const {
    const std::lock_guard guard(resultsLock_);
    return {results_.begin(), results_.end()};
}

ServiceResults::List ServiceResults::takeAll() {
    std::deque<Result> taken;
    {
        const std::lock_guard guard(resultsLock_);
        taken.swap(results_);
    }
    return {taken.begin(), taken.end()};
}

}  // namespace velkotx::host
