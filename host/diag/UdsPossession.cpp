// The link of a channel in the hands of one thread.
#include "diag/UdsPossession.h"

#include "diag/UdsProtocol.h"

#include <algorithm>
#include <utility>

namespace velkotx::host {

UdsTraffic::Possession::Possession(UdsTraffic& traffic, Lock& lock, User user)
    : traffic_(traffic),
      link_(traffic.link_),
      timing_(traffic.session_.stretched(traffic.timing_)),
      dueForAll_(traffic.session_.isFunctional() ? traffic.aliveDue() : Clock::Time::max()) {
    traffic.user_ = user;
    lock.unlock();
}

UdsTraffic::Possession::~Possession() {
    if (held_)
        giveBack(nullptr, false);
}

Clock::Time UdsTraffic::Possession::dueForAll(const UdsExchange& exchange) const {
    const std::lock_guard guard(traffic_.trafficLock_);
    if (traffic_.session_.isFunctional())
        return traffic_.aliveDue();
    const bool opens = UdsSession::opensForAll(exchange.request()) && traffic_.timing_.testerPresent.count() > 0;
    return opens ? traffic_.lastToAll_ + traffic_.timing_.testerPresent : Clock::Time::max();
}

void UdsTraffic::Possession::keepAllAlive() {
    link_->send(uds::quietTesterPresent, true);
    sentToAll(traffic_.clock_.now());
}

void UdsTraffic::Possession::sentToAll(Clock::Time time) {
    const std::lock_guard guard(traffic_.trafficLock_);
    traffic_.lastToAll_ = std::max(traffic_.lastToAll_, time);
}

bool UdsTraffic::Possession::isLost() const {
    const std::lock_guard guard(traffic_.trafficLock_);
    return traffic_.link_ != link_;
}

void UdsTraffic::Possession::release(const UdsExchange& exchange, bool broken) { giveBack(&exchange, broken); }
void UdsTraffic::Possession::release(bool broken) { giveBack(nullptr, broken); }

UdsTraffic::HandOver UdsTraffic::Possession::handOver(UdsExchange& exchange) {
    {
        const std::lock_guard guard(traffic_.trafficLock_);
        if (traffic_.state_ == UdsChannel::State::Open) {
            if (!traffic_.ensureThread()) {
                traffic_.waitsItself_ = true;
                return HandOver::NoThread;
            }
            traffic_.user_ = User::Thread;
            traffic_.resumed_ = std::move(exchange);
            held_ = false;
        }
    }
    if (held_) {
        giveBack(nullptr, false);
        return HandOver::NotOpen;
    }
    traffic_.burstOver_.notify_all();
    traffic_.threadWanted_.notify_all();
    return HandOver::Taken;
}

void UdsTraffic::Possession::giveBack(const UdsExchange* exchange, bool broken) {
    held_ = false;
    const Clock::Time now = traffic_.clock_.now();
    Lock lock(traffic_.trafficLock_);
    traffic_.release(lock, exchange, now, broken);
}

}  // namespace velkotx::host
