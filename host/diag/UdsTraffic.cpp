// What goes over the link of a channel: requests as they come.
#include "diag/UdsTraffic.h"

#include "diag/UdsPossession.h"

#include <exception>
#include <thread>
#include <utility>

namespace velkotx::host {

UdsTraffic::UdsTraffic(std::shared_ptr<Transport> transport, std::string name, std::shared_ptr<PduTrace> trace)
    : transport_(std::move(transport)), clock_(transport_->clock()), name_(std::move(name)), trace_(std::move(trace)) {}

void UdsTraffic::open() {
    using enum UdsChannel::State;
    {
        const std::lock_guard guard(trafficLock_);
        if (state_ == Closed || state_ == Open)
            return;
        if (state_ == Stopped && link_ != nullptr) {
            state_ = Open;
            return;
        }
    }
    const auto link = std::make_shared<TracedLink>(transport_->open(name_), clock_, name_, trace_);
    {
        const std::lock_guard guard(trafficLock_);
        if (state_ == Created || state_ == Broken || (state_ == Stopped && link_ == nullptr)) {
            link_ = link;
            state_ = Open;
            session_.forget();
            return;
        }
    }
    // Somebody was quicker.
    link->close();
}

void UdsTraffic::stop() {
    std::deque<UdsExchange> waiting;
    std::shared_ptr<Link> busy;
    {
        const std::lock_guard guard(trafficLock_);
        if (state_ != UdsChannel::State::Open)
            return;
        state_ = UdsChannel::State::Stopped;
        session_.forget();
        waiting.swap(queue_);
        if (resumed_) {
            waiting.push_front(std::move(*resumed_));
            resumed_.reset();
            user_ = User::Nobody;
        } else if (user_ == User::Thread || waitsItself_) {
            // Only the end of its link ends a wait for an answer; the next start opens another one.
            busy = std::move(link_);
        }
    }
    if (busy != nullptr)
        busy->close();
    refuse(std::move(waiting), UdsOutcome::End::Stopped);
}

void UdsTraffic::close() {
    std::deque<UdsExchange> waiting;
    std::shared_ptr<Link> link;
    {
        const std::lock_guard guard(trafficLock_);
        state_ = UdsChannel::State::Closed;
        link = link_;
        waiting.swap(queue_);
    }
    threadWanted_.notify_all();
    if (link != nullptr)
        link->close();
    refuse(std::move(waiting), UdsOutcome::End::Closed);
}

UdsChannel::State UdsTraffic::state() const {
    const std::lock_guard guard(trafficLock_);
    return state_;
}

void UdsTraffic::setTiming(const UdsTiming& timing) {
    {
        const std::lock_guard guard(trafficLock_);
        timing_ = timing;
        timesChanged_ = true;
        if (keepsAlive())
            ensureThread();
    }
    threadWanted_.notify_all();
}

void UdsTraffic::refuse(std::deque<UdsExchange>&& exchanges, UdsOutcome::End end) {
    for (auto& exchange : exchanges) {
        exchange.end(end);
        exchange.report();
    }
}

bool UdsTraffic::submit(UdsExchange&& exchange) {
    Lock lock(trafficLock_);
    awaitEndOfBurst(lock);
    const bool open = state_ == UdsChannel::State::Open;
    if (open && (user_ != User::Nobody || !queue_.empty()) && queue_.size() < UdsChannel::longestQueue) {
        queue_.push_back(std::move(exchange));
        lock.unlock();
        threadWanted_.notify_all();
        return false;
    }
    if (!open || user_ != User::Nobody || !queue_.empty()) {
        const UdsOutcome::End end = open ? UdsOutcome::End::Crowded : endBy(state_);
        lock.unlock();
        exchange.end(end);
        exchange.report();
        return true;
    }
    Possession link(*this, lock, User::Burst);
    if (!run(exchange, link, false, UdsExchange::Patience::Poll)) {
        switch (link.handOver(exchange)) {
            case HandOver::Taken: return false;
            case HandOver::NotOpen: exchange.end(endBy(state())); break;
            // Whoever submits waits; a stop or a close of the channel ends the wait.
            case HandOver::NoThread: run(exchange, link, true, UdsExchange::Patience::Wait); break;
        }
    }
    exchange.report();
    return true;
}

// Whoever comes in the middle of a burst spins a little before it sleeps: a burst takes microseconds.
void UdsTraffic::awaitEndOfBurst(Lock& lock) {
    for (int spins = 0; user_ == User::Burst && spins < 50; ++spins) {
        lock.unlock();
        std::this_thread::yield();
        lock.lock();
    }
    burstOver_.wait(lock, [this] { return user_ != User::Burst; });
}

// Begins, goes on, and lets go of the link when the exchange has ended. False when an answer has to be waited for.
bool UdsTraffic::run(UdsExchange& exchange, Possession& link, bool begun, UdsExchange::Patience patience) {
    try {
        if (!begun)
            begin(exchange, link);
        const bool waits = patience == UdsExchange::Patience::Wait;
        while (!exchange.proceed(link.link(), clock_, patience, waits ? link.dueForAll(exchange) : Clock::Time::max())) {
            if (!waits)
                return false;
            // Whoever is waited for takes it without an answer, and the others would fall back meanwhile.
            link.keepAllAlive();
        }
        if (exchange.outcome().end == UdsOutcome::End::Closed)
            exchange.end(link.isLost() ? UdsOutcome::End::Stopped : UdsOutcome::End::Closed);
        link.release(exchange, false);
    } catch (const std::exception& failure) {
        const bool stopped = link.isLost();
        if (stopped || state() == UdsChannel::State::Closed)
            exchange.end(stopped ? UdsOutcome::End::Stopped : UdsOutcome::End::Closed);
        else
            exchange.end(UdsOutcome::End::LinkBroken, failure.what());
        link.release(exchange, !stopped);
    }
    return true;
}

void UdsTraffic::begin(UdsExchange& exchange, Possession& link) {
    const bool toAll = exchange.request().functional;
    // Requests to one control unit that come one after the other leave the channel's thread no time to do it.
    if (!toAll && link.dueForAll() != Clock::Time::max() && link.dueForAll() <= clock_.now())
        link.keepAllAlive();
    exchange.begin(link.link(), clock_, link.timing());
    if (toAll)
        link.sentToAll(exchange.sent());
}

UdsOutcome::End UdsTraffic::endBy(UdsChannel::State state) {
    switch (state) {
        case UdsChannel::State::Broken: return UdsOutcome::End::LinkBroken;
        case UdsChannel::State::Closed: return UdsOutcome::End::Closed;
        default: return UdsOutcome::End::Stopped;
    }
}

void UdsTraffic::release(Lock& lock, const UdsExchange* exchange, Clock::Time now, bool broken) {
    // A thread that came while somebody waited itself left it to that one.
    const bool keptAlive = keepsAlive() && !waitsItself_;
    user_ = User::Nobody;
    waitsItself_ = false;
    lastTraffic_ = now;
    if (exchange != nullptr)
        session_.observe(exchange->request(), exchange->outcome());
    std::deque<UdsExchange> waiting;
    std::shared_ptr<Link> brokenLink;
    if (broken && state_ != UdsChannel::State::Closed) {
        state_ = UdsChannel::State::Broken;
        brokenLink = link_;
        session_.forget();
        waiting.swap(queue_);
    }
    // Asked each time, since there may have been no thread to be had the last time.
    const bool threadWanted = keepsAlive() && ensureThread() && !keptAlive;
    timesChanged_ = timesChanged_ || threadWanted;
    lock.unlock();
    burstOver_.notify_all();
    if (threadWanted)
        threadWanted_.notify_all();
    if (brokenLink != nullptr)
        brokenLink->close();
    refuse(std::move(waiting), UdsOutcome::End::LinkBroken);
}

}  // namespace velkotx::host
