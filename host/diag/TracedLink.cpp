// A link that shows what passes to a trace.
#include "diag/TracedLink.h"

#include <utility>

namespace velkotx::host {

TracedLink::TracedLink(std::unique_ptr<Link> link, const Clock& clock, std::string channel,
                       std::shared_ptr<PduTrace> trace)
    : link_(std::move(link)), clock_(clock), channel_(std::move(channel)), trace_(std::move(trace)) {}

void TracedLink::send(std::span<const std::uint8_t> request, bool functional) {
    if (trace_ == nullptr)
        return link_->send(request, functional);
    const Clock::Time time = clock_.now();
    link_->send(request, functional);
    trace_->passed({time, PduDirection::Sent, channel_, channel_, functional, request});
}

std::optional<ReceivedPdu> TracedLink::receive(Clock::Time until) {
    auto received = link_->receive(until);
    if (trace_ != nullptr && received)
        trace_->passed({received->time, PduDirection::Received, channel_, received->controlUnit, false, received->bytes});
    return received;
}

void TracedLink::close() { link_->close(); }

}  // namespace velkotx::host
