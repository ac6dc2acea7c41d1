// The thread of a channel: answers that have to be waited for, requests that wait, what is due, and tester present.
#include "diag/UdsPossession.h"

#include "diag/UdsProtocol.h"
#include "rest/HostThread.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <optional>
#include <system_error>
#include <utility>

namespace velkotx::host {

namespace {

// A thread with nothing to do looks around now and then, so that no clock has to bear the end of time.
constexpr Clock::Duration longestRest = std::chrono::hours(1);

}  // namespace

bool UdsTraffic::ensureThread() {
    if (state_ == UdsChannel::State::Closed)
        return false;
    try {
        if (!thread_.joinable())
            thread_ = std::thread([self = shared_from_this()] { self->work(); });
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

std::thread UdsTraffic::takeThread() {
    const std::lock_guard guard(trafficLock_);
    return std::move(thread_);
}

void UdsTraffic::work() {
    for (;;) {
        const Clock::Time now = clock_.now();
        Lock lock(trafficLock_);
        if (resume(lock))
            continue;
        if (state_ == UdsChannel::State::Closed)
            return tellOfEnd(lock, now);
        if (!serveQueue(lock) && !serveTimed(lock, now) && !keepAlive(lock, now))
            rest(lock, now);
    }
}

// Each of these does one thing and gives true, having let go of the lock; or it finds nothing to do.

bool UdsTraffic::resume(Lock& lock) {
    if (!resumed_)
        return false;
    UdsExchange exchange = std::move(*resumed_);
    resumed_.reset();
    Possession link(*this, lock, User::Thread);
    run(exchange, link, true, UdsExchange::Patience::Wait);
    exchange.report();
    return true;
}

bool UdsTraffic::serveQueue(Lock& lock) {
    if (user_ != User::Nobody || queue_.empty())
        return false;
    UdsExchange exchange = std::move(queue_.front());
    queue_.pop_front();
    Possession link(*this, lock, User::Thread);
    run(exchange, link, false, UdsExchange::Patience::Wait);
    exchange.report();
    return true;
}

bool UdsTraffic::serveTimed(Lock& lock, Clock::Time now) {
    const auto due = std::find_if(timed_.begin(), timed_.end(), [&](const Timed& timed) { return timed.time <= now; });
    if (due == timed_.end())
        return false;
    const auto weak = std::move(due->what);
    timed_.erase(due);
    lock.unlock();
    if (const auto what = weak.lock()) {
        if (const auto next = what->due(now)) {
            const std::lock_guard guard(trafficLock_);
            timed_.push_back({*next, weak});
        }
    }
    return true;
}

// Whoever waits for what is due learns that the channel is closed.
void UdsTraffic::tellOfEnd(Lock& lock, Clock::Time now) {
    std::vector<Timed> left;
    left.swap(timed_);
    lock.unlock();
    for (const Timed& timed : left) {
        if (const auto what = timed.what.lock())
            what->due(now);
    }
}

bool UdsTraffic::schedule(Clock::Time time, std::weak_ptr<UdsTimed> timed) {
    {
        const std::lock_guard guard(trafficLock_);
        if (!ensureThread())
            return false;
        timed_.push_back({time, std::move(timed)});
        timesChanged_ = true;
    }
    threadWanted_.notify_all();
    return true;
}

bool UdsTraffic::keepsAlive() const {
    return state_ == UdsChannel::State::Open && session_.needsTesterPresent() && timing_.testerPresent.count() > 0;
}

// Traffic with one control unit keeps the session of that one.
Clock::Time UdsTraffic::aliveDue() const {
    if (!keepsAlive())
        return Clock::Time::max();
    return (session_.isFunctional() ? lastToAll_ : lastTraffic_) + timing_.testerPresent;
}

bool UdsTraffic::keepAlive(Lock& lock, Clock::Time now) {
    // Whoever waits itself does this itself.
    if (waitsItself_ || now < aliveDue())
        return false;
    if (user_ != User::Nobody) {
        // What is on the link may keep the session alive as well.
        awaitEndOfBurst(lock);
        return true;
    }
    const bool functional = session_.isFunctional();
    Possession link(*this, lock, User::Burst);
    bool broken = false;
    try {
        if (functional)
            link.keepAllAlive();
        else
            link.link().send(uds::quietTesterPresent, false);
    } catch (const std::exception&) {
        broken = true;
    }
    link.release(broken);
    return true;
}

void UdsTraffic::rest(Lock& lock, Clock::Time now) {
    Clock::Time until = now + longestRest;
    for (const Timed& timed : timed_)
        until = std::min(until, timed.time);
    if (!waitsItself_)
        until = std::min(until, aliveDue());
    timesChanged_ = false;
    // Tester present brings no run on.
    std::optional<HostThread> idle;
    if (timed_.empty())
        idle.emplace();
    clock_.waitUntil(lock, threadWanted_, until, [this] {
        return resumed_ || timesChanged_ || state_ == UdsChannel::State::Closed ||
               (user_ == User::Nobody && !queue_.empty());
    });
}

}  // namespace velkotx::host
