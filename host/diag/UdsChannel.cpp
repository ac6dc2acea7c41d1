// A channel to a control unit: its life and its thread.
#include "diag/UdsChannel.h"

#include "diag/UdsTraffic.h"

#include <thread>
#include <utility>

namespace velkotx::host {

UdsChannel::UdsChannel(std::shared_ptr<Transport> transport, const std::string& name, std::shared_ptr<PduTrace> trace)
    : traffic_(std::make_shared<UdsTraffic>(std::move(transport), name, std::move(trace))) {}

UdsChannel::~UdsChannel() {
    traffic_->close();
    std::thread thread = traffic_->takeThread();
    if (!thread.joinable())
        return;
    if (thread.get_id() == std::this_thread::get_id())
        // A client that this thread calls let go of the channel. The thread ends when the call is over, and touches
        // nothing but what it owns itself.
        thread.detach();
    else
        thread.join();
}

void UdsChannel::start() { traffic_->open(); }
void UdsChannel::stop() { traffic_->stop(); }
void UdsChannel::close() { traffic_->close(); }
UdsChannel::State UdsChannel::state() const { return traffic_->state(); }
const std::string& UdsChannel::name() const noexcept { return traffic_->name(); }
Clock& UdsChannel::clock() const noexcept { return traffic_->clock(); }
void UdsChannel::setTiming(const UdsTiming& timing) { traffic_->setTiming(timing); }

bool UdsChannel::submit(UdsRequest&& request, std::shared_ptr<UdsClient> client) {
    return traffic_->submit(UdsExchange(std::move(request), std::move(client)));
}

bool UdsChannel::schedule(Clock::Time time, std::weak_ptr<UdsTimed> timed) {
    return traffic_->schedule(time, std::move(timed));
}

}  // namespace velkotx::host
