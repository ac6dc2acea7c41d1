// The link of a channel in the hands of one thread.
#pragma once

#include "diag/UdsTraffic.h"

namespace velkotx::host {

// Gives the link back in the end, whatever comes.
class UdsTraffic::Possession {
public:
    // The lock is the traffic's, held; it is let go of.
    Possession(UdsTraffic& traffic, Lock& lock, User user);
    Possession(const Possession&) = delete;
    Possession& operator=(const Possession&) = delete;
    ~Possession();

    Link& link() const noexcept { return *link_; }
    const UdsTiming& timing() const noexcept { return timing_; }

    // When tester present has to go to all that were sent to a session, whatever else is on the link: as things stood when
    // the link was taken, and as they stand with the exchange on it. Never is the end of time.
    Clock::Time dueForAll() const noexcept { return dueForAll_; }
    Clock::Time dueForAll(const UdsExchange& exchange) const;
    // Sends it. Throws as the link does.
    void keepAllAlive();
    // Something went to all of them.
    void sentToAll(Clock::Time time);

    // Whether the communication was stopped meanwhile, which took this link away.
    bool isLost() const;
    // The exchange has ended; a broken link takes the channel down.
    void release(const UdsExchange& exchange, bool broken);
    void release(bool broken);
    // Leaves the link and the exchange to the channel's thread. When the channel is stopped or closed the link is given back,
    // when there is no thread to be had both stay here.
    HandOver handOver(UdsExchange& exchange);

private:
    void giveBack(const UdsExchange* exchange, bool broken);

    UdsTraffic& traffic_;
    std::shared_ptr<Link> link_;
    UdsTiming timing_;
    const Clock::Time dueForAll_;
    bool held_ = true;
};

}  // namespace velkotx::host
