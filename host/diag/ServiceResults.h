// The results of a service, and who is told of them.
#pragma once

#include "diag/DiagResult.h"

#include <otx/value/COtxValue.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

namespace velkotx::host {

// Any thread. No lock is held while an event source is called.
class ServiceResults {
public:
    // Of more results the oldest are dropped.
    static constexpr std::size_t most = 1000;

    using Result = std::shared_ptr<const ResultData>;
    using List = std::vector<Result>;

    // The event source that is told of each result: the one that somebody still has and nobody has closed, or a new one.
    COtxValue source();

    // An execution starts.
    void begin();
    // It never came to be.
    void abandon();
    // It has ended: its result takes the place of all others. `service` is what the event holds.
    void end(Result result, const COtxValue& service);
    // The same for one that was refused at once, ahead of those that were started before it.
    void refuse(Result result, const COtxValue& service);
    // One of a repeated execution has ended: its result comes behind the others.
    void append(Result result, const COtxValue& service);

    // How many executions have been started so far, and whether that many have ended, or the last of them was refused. Else
    // those of one service end in the order in which they were started.
    std::uint64_t started() const;
    bool haveEnded(std::uint64_t executions) const;
    // A source that is signalled when one ends.
    void listen(const COtxValue& listener);
    void unlisten(const COtxValue& listener);

    Result first() const;
    List all() const;
    List takeAll();

private:
    void replace(Result&& result, const COtxValue& service, bool refused);
    void store(Result&& result);
    void tell(const COtxValue& service);
    void signalListeners();

    // Guards all below.
    mutable std::mutex resultsLock_;
    std::weak_ptr<COtxValueBehaviour> source_;
    std::vector<COtxValue> listeners_;
    std::deque<Result> results_;
    std::uint64_t started_ = 0;
    std::uint64_t ended_ = 0;
    // The newest one that was refused, by its number among those that were started.
    std::uint64_t refused_ = 0;
};

}  // namespace velkotx::host
