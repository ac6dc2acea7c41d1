// In which session a control unit is, as far as the channel to it has seen.
#include "diag/UdsSession.h"

#include "diag/UdsProtocol.h"

#include <algorithm>

namespace velkotx::host {

namespace {

// The first positive response, whose times hold.
const ReceivedPdu* positive(const UdsOutcome& outcome) {
    const auto found = std::find_if(outcome.responses.begin(), outcome.responses.end(), [](const ReceivedPdu& response) {
        return response.bytes[0] != uds::negativeResponse;
    });
    return found == outcome.responses.end() ? nullptr : &*found;
}

}  // namespace

void UdsSession::observe(const UdsRequest& request, const UdsOutcome& outcome) {
    if (request.bytes.size() < 2)
        return;
    if (outcome.end != UdsOutcome::End::Suppressed && positive(outcome) == nullptr)
        return;
    if (request.bytes[0] == uds::sessionControl)
        enter(request, outcome);
    else if (request.bytes[0] == uds::reset)
        forget();
}

bool UdsSession::needsTesterPresent() const noexcept { return session_ != uds::defaultSession; }

UdsTiming UdsSession::stretched(UdsTiming timing) const {
    timing.p2 = std::max(timing.p2, p2_);
    timing.p2Star = std::max(timing.p2Star, p2Star_);
    return timing;
}

void UdsSession::enter(const UdsRequest& request, const UdsOutcome& outcome) {
    forget();
    session_ = static_cast<std::uint8_t>(request.bytes[1] & ~uds::suppressPositive);
    functional_ = request.functional;
    const ReceivedPdu* const response = positive(outcome);
    if (response == nullptr || response->bytes.size() < 6)
        return;
    const auto number = [&](std::size_t at) { return response->bytes[at] * 256 + response->bytes[at + 1]; };
    p2_ = std::chrono::milliseconds(number(2));
    p2Star_ = std::chrono::milliseconds(10 * number(4));
}

}  // namespace velkotx::host
