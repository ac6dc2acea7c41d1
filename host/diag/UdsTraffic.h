// What goes over the link of a channel, and in which order.
#pragma once

#include "diag/TracedLink.h"
#include "diag/UdsChannel.h"
#include "diag/UdsSession.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace velkotx::host {

// Shared by a channel and its thread. No lock is held while the link, the clock's now(), a client or a trace is called.
class UdsTraffic : public std::enable_shared_from_this<UdsTraffic> {
public:
    UdsTraffic(std::shared_ptr<Transport> transport, std::string name, std::shared_ptr<PduTrace> trace);

    void open();
    void stop();
    void close();
    UdsChannel::State state() const;
    const std::string& name() const noexcept { return name_; }
    Clock& clock() const noexcept { return clock_; }

    void setTiming(const UdsTiming& timing);
    bool submit(UdsExchange&& exchange);
    bool schedule(Clock::Time time, std::weak_ptr<UdsTimed> timed);
    // Of a closed channel, after which it gets no other one. May not be joinable.
    std::thread takeThread();

private:
    // Who has the link. A burst never waits for an answer, so whoever wants the link waits for its end; the channel's
    // thread does wait, so what comes meanwhile is queued.
    enum class User { Nobody, Burst, Thread };
    // What became of an exchange that has to wait.
    enum class HandOver { Taken, NotOpen, NoThread };
    struct Timed {
        Clock::Time time;
        std::weak_ptr<UdsTimed> what;
    };
    class Possession;
    using Lock = std::unique_lock<std::mutex>;

    void awaitEndOfBurst(Lock& lock);
    void release(Lock& lock, const UdsExchange* exchange, Clock::Time now, bool broken);
    void begin(UdsExchange& exchange, Possession& link);
    bool run(UdsExchange& exchange, Possession& link, bool begun, UdsExchange::Patience patience);
    // How a request ends that is made in that state, or runs into it.
    static UdsOutcome::End endBy(UdsChannel::State state);
    static void refuse(std::deque<UdsExchange>&& exchanges, UdsOutcome::End end);

    // True when the channel has a thread, which begins when it is wanted first: most channels that open and close in
    // no time never want one. False when the channel is closed, or there is no thread to be had. Under the lock.
    bool ensureThread();
    // The thread's life: returns when the channel is closed.
    void work();
    bool resume(Lock& lock);
    bool serveQueue(Lock& lock);
    bool serveTimed(Lock& lock, Clock::Time now);
    bool keepAlive(Lock& lock, Clock::Time now);
    void rest(Lock& lock, Clock::Time now);
    void tellOfEnd(Lock& lock, Clock::Time now);
    bool keepsAlive() const;
    // When tester present has to be sent next; the end of time when none has to. Under the lock.
    Clock::Time aliveDue() const;

    const std::shared_ptr<Transport> transport_;
    Clock& clock_;
    const std::string name_;
    const std::shared_ptr<PduTrace> trace_;

    // Guards all below.
    mutable std::mutex trafficLock_;
    std::condition_variable threadWanted_;
    std::condition_variable burstOver_;
    UdsChannel::State state_ = UdsChannel::State::Created;
    std::shared_ptr<Link> link_;
    std::thread thread_;
    UdsTiming timing_;
    UdsSession session_;
    User user_ = User::Nobody;
    // A burst that waits after all, since there is no thread to be had.
    bool waitsItself_ = false;
    // An exchange whose burst is over without an answer; the user is the thread then.
    std::optional<UdsExchange> resumed_;
    std::deque<UdsExchange> queue_;
    std::vector<Timed> timed_;
    bool timesChanged_ = false;
    Clock::Time lastTraffic_{0};
    // Of that only what went to all: it alone keeps the sessions of several control units.
    Clock::Time lastToAll_{0};
};

}  // namespace velkotx::host
