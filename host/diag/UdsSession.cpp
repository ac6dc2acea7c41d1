// In which sessions control units are, as far as the channel to them has seen.
#include "diag/UdsSession.h"

#include "diag/UdsProtocol.h"

#include <algorithm>

namespace velkotx::host {

namespace {

bool isPositive(const ReceivedPdu& response) { return response.bytes[0] != uds::negativeResponse; }

std::uint8_t subfunction(const UdsRequest& request) {
    return static_cast<std::uint8_t>(request.bytes[1] & ~uds::suppressPositive);
}

}  // namespace

bool UdsSession::opensForAll(const UdsRequest& request) noexcept {
    return request.functional && request.bytes.size() > 1 && request.bytes[0] == uds::sessionControl &&
           subfunction(request) != uds::defaultSession;
}

void UdsSession::observe(const UdsRequest& request, const UdsOutcome& outcome) {
    if (request.bytes.size() < 2)
        return;
    if (outcome.end != UdsOutcome::End::Suppressed &&
        std::none_of(outcome.responses.begin(), outcome.responses.end(), isPositive))
        return;
    if (request.bytes[0] == uds::sessionControl)
        enter(request, outcome);
    else if (request.bytes[0] == uds::reset)
        leave(request);
}

bool UdsSession::needsTesterPresent() const noexcept { return own_.isOpen() || isFunctional(); }

UdsTiming UdsSession::stretched(UdsTiming timing) const {
    timing.p2 = std::max({timing.p2, own_.p2, ofAll_.p2});
    timing.p2Star = std::max({timing.p2Star, own_.p2Star, ofAll_.p2Star});
    return timing;
}

bool UdsSession::Entered::isOpen() const noexcept { return session != uds::defaultSession; }

void UdsSession::enter(const UdsRequest& request, const UdsOutcome& outcome) {
    if (subfunction(request) == uds::defaultSession)
        leave(request);
    Entered& entered = request.functional ? ofAll_ : own_;
    entered = Entered();
    entered.session = subfunction(request);
    for (const ReceivedPdu& response : outcome.responses) {
        if (!isPositive(response) || response.bytes.size() < 6)
            continue;
        const auto number = [&](std::size_t at) { return response.bytes[at] * 256 + response.bytes[at + 1]; };
        // Any of them may take as long as it announced.
        entered.p2 = std::max<Clock::Duration>(entered.p2, std::chrono::milliseconds(number(2)));
        entered.p2Star = std::max<Clock::Duration>(entered.p2Star, std::chrono::milliseconds(10 * number(4)));
    }
}

void UdsSession::leave(const UdsRequest& request) {
    own_ = Entered();
    // What one control unit does takes no other one out of the session.
    if (request.functional)
        ofAll_ = Entered();
}

}  // namespace velkotx::host
