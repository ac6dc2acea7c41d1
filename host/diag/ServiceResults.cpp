// The results of a service, and who is told of them.
#include "diag/ServiceResults.h"

#include <otx/event/COtxSignalEventSource.h>

#include <algorithm>
#include <utility>

namespace velkotx::host {

COtxValue ServiceResults::source() {
    const std::lock_guard guard(resultsLock_);
    if (auto behaviour = source_.lock())
        return COtxValue(std::move(behaviour));
    COtxSignalEventSource source(OTX::EventKind::DiagService);
    source_ = source.GetBehaviourReference();
    return source;
}

void ServiceResults::drop(const COtxValue& source) {
    const std::lock_guard guard(resultsLock_);
    if (source_.lock() == source.GetBehaviourReference())
        source_.reset();
}

void ServiceResults::begin() {
    const std::lock_guard guard(resultsLock_);
    ++running_;
    endedSinceStart_ = false;
}

void ServiceResults::abandon() {
    const std::lock_guard guard(resultsLock_);
    --running_;
}

void ServiceResults::end(Result result, const COtxValue& service) {
    std::vector<COtxValue> listeners;
    std::deque<Result> old;
    {
        const std::lock_guard guard(resultsLock_);
        --running_;
        endedSinceStart_ = true;
        old.swap(results_);
        store(std::move(result));
        listeners = listeners_;
    }
    tell(service, listeners);
}

void ServiceResults::append(Result result, const COtxValue& service) {
    {
        const std::lock_guard guard(resultsLock_);
        store(std::move(result));
    }
    tell(service, {});
}

void ServiceResults::store(Result&& result) {
    results_.push_back(std::move(result));
    if (results_.size() > most)
        results_.pop_front();
}

void ServiceResults::tell(const COtxValue& service, const std::vector<COtxValue>& listeners) {
    std::shared_ptr<COtxValueBehaviour> source;
    {
        const std::lock_guard guard(resultsLock_);
        source = source_.lock();
    }
    if (source != nullptr)
        source->IEventSource().Put(service);
    for (const COtxValue& listener : listeners)
        listener.EventSource().Signal();
}

bool ServiceResults::isUnsettled() const {
    const std::lock_guard guard(resultsLock_);
    return running_ > 0 && !endedSinceStart_;
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
